#include "AutoPlanField.h"
#include "ClientWindowTest.h"
#include "EditorForm.h"
#include "HintReader.h"
#include "OrloDecimalLineEdit.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QtTest>

namespace BaseField = AutoPlanField::BaseField;

/// What a trader types in the number fields of the client's window, up to the stored plan.
class NumberInputTest : public ClientWindowTest {
    Q_OBJECT

private:
    void prepare() override
    {
        ClientWindowTest::prepare();
        openWindow();
        pressForEditor(Qt::Key_N);
    }

    void fill(const PlanForm& form)
    {
        FormDriver driver = dialogDriver();
        driver.fill(form);
        QCOMPARE(driver.takeProblems(), QStringList());
    }

    OrloDecimalLineEdit* number(const char* name) const { return field<OrloDecimalLineEdit>(*dialogEditor(), name); }
    QLineEdit* line(const char* name) const { return number(name)->findChild<QLineEdit*>(); }

    /// What the form says that an input means; empty if it does not say it.
    QString meaning(const char* name) const
    {
        const auto* const label = number(name)->findChild<QLabel*>(QStringLiteral("inputMeaning"));
        return label && label->isVisible() ? label->text() : QString();
    }

    QString stored(const QString& key) const { return plans().record(newestPlan())->value(key).toString(); }

private Q_SLOTS:
    void aTypedNumberIsStored_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::newRow("digits") << QStringLiteral("50000");
        QTest::newRow("ten thousands") << QStringLiteral("5万");
        QTest::newRow("groups") << QStringLiteral("50,000");
        QTest::newRow("full width") << QStringLiteral("５００００");
        QTest::newRow("blanks around") << QStringLiteral(" 50000 ");
        QTest::newRow("lots of the security") << QStringLiteral("500手");
    }

    void aTypedNumberIsStored()
    {
        QFETCH(QString, typed);
        PlanForm form = ordinary();
        form.target = typed;
        fill(form);
        QCOMPARE(line("le_targetTotalNum")->text(), QStringLiteral("50,000"));
        QCOMPARE(send(), QStringLiteral("交易自动规划创建成功!"));
        QCOMPARE(stored(BaseField::totalQty), QStringLiteral("50000"));
    }

    void aCellOfASpreadsheetIsStored()
    {
        fill(ordinary());
        QGuiApplication::clipboard()->setText(QStringLiteral("50,000.00\t\r\n"));
        QTest::mouseClick(line("le_targetTotalNum"), Qt::LeftButton);
        QTest::keyClick(number("le_targetTotalNum"), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(number("le_targetTotalNum"), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(meaning("le_targetTotalNum"), QStringLiteral("= 50,000 股"));
        QCOMPARE(send(), QStringLiteral("交易自动规划创建成功!"));
        QCOMPARE(stored(BaseField::totalQty), QStringLiteral("50000"));
    }

    void anAmountIsStoredWithoutSeparators()
    {
        PlanForm form = ordinary(ReviewedAccount).byAmount(QStringLiteral("1.2亿"), QStringLiteral("12,345,678.5"));
        form.instructionMode.clear();
        fill(form);
        QCOMPARE(line("le_targetTotalNum")->text(), QStringLiteral("120,000,000.00"));
        QCOMPARE(number("le_targetTotalNum")->GetStrValue(), QStringLiteral("120000000.00"));
        QCOMPARE(number("le_entrustMaxNum")->GetStrValue(), QStringLiteral("12345678.50"));
        dialogDriver().type("le_targetTotalNum", QStringLiteral("3手"));
        QCOMPARE(hintAt(number("le_targetTotalNum")), QStringLiteral("此处以元为单位，不能用手"));
    }

    void theMeaningIsShownInTheFieldWithTheFocus()
    {
        fill(ordinary());
        QTest::mouseClick(line("le_targetTotalNum"), Qt::LeftButton);
        QTest::keyClick(number("le_targetTotalNum"), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(number("le_targetTotalNum"), QStringLiteral("12345"));
        QCOMPARE(meaning("le_targetTotalNum"), QStringLiteral("= 12,345 股"));
        QTest::keyClick(number("le_targetTotalNum"), Qt::Key_Tab);
        QCOMPARE(meaning("le_targetTotalNum"), QString());
        QCOMPARE(line("le_targetTotalNum")->text(), QStringLiteral("12,345"));
    }

    void typingIntoAnUntouchedFieldReplacesItsZero()
    {
        for (const char* const name : { "le_targetTotalNum", "le_entrustMaxNum" }) {
            QCOMPARE(line(name)->text(), QStringLiteral("0.00"));
            QTest::mouseClick(line(name), Qt::LeftButton);
            QTest::keyClicks(number(name), QStringLiteral("500"));
            QCOMPARE(line(name)->text(), QStringLiteral("500"));
        }
    }

    void aTargetThatIsNoNumberIsRefusedByTheEditor()
    {
        PlanForm form = ordinary();
        form.target = QStringLiteral("5x");
        fill(form);
        QCOMPARE(send("msgBoxWarning"), QStringLiteral("未输入目标总量！"));
        QCOMPARE(*plans().count(), 0);
        QCOMPARE(line("le_targetTotalNum")->text(), QStringLiteral("5x"));
        dialogDriver().type("le_targetTotalNum", QStringLiteral("5万"));
        QCOMPARE(send(), QStringLiteral("交易自动规划创建成功!"));
        QCOMPARE(stored(BaseField::totalQty), QStringLiteral("50000"));
    }

    // The editor has no rule for the daily maximum, which may be missing.
    void aDailyMaximumThatIsNoNumberIsRefusedByTheService()
    {
        PlanForm form = ordinary();
        form.perDay = QStringLiteral("1,5");
        fill(form);
        QCOMPARE(send("msgBoxError"),
            QStringLiteral("每日最大委托量的输入无法使用：“1,5”中的逗号有歧义，千分位须每三位一个，小数点请用“.”"));
        QCOMPARE(*plans().count(), 0);
        QCOMPARE(line("le_entrustMaxNum")->text(), QStringLiteral("1,5"));
    }

    void aCorrectedNumberIsNotUnderlined()
    {
        const auto isUnderlined = [this] {
            return number("le_entrustMaxNum")->font().underline() || line("le_entrustMaxNum")->font().underline();
        };
        QVERIFY(!isUnderlined());
        FormDriver driver = dialogDriver();
        driver.type("le_entrustMaxNum", QStringLiteral("1,5"));
        QVERIFY(isUnderlined());
        driver.type("le_entrustMaxNum", QStringLiteral("1500"));
        QVERIFY(!isUnderlined());
        driver.type("le_entrustMaxNum", QStringLiteral("1,5"));
        driver.type("le_entrustMaxNum", QStringLiteral("1500"));
        QVERIFY(!isUnderlined());
    }

    void aChangedPlanIsRefusedInTheSameWay()
    {
        const QString id = session().create(SampleSession::record());
        dialog().leave();
        QVERIFY(press(&window(), Qt::Key_F5));
        window().selectPlan(id);
        pressForEditor(Qt::Key_E);
        dialogDriver().type("le_entrustMaxNum", QStringLiteral("9x"));
        const QString text = send("msgBoxError");
        QVERIFY2(text.contains(QStringLiteral("每日最大委托量的输入无法使用")), qPrintable(text));
        QCOMPARE(plans().plan(id)->version, 1);
    }

    void lookingAtANumberDoesNotChangeTheForm()
    {
        session().create(SampleSession::record());
        dialog().leave();
        QVERIFY(press(&window(), Qt::Key_F5));
        pressForEditor(Qt::Key_D);
        QTest::mouseClick(line("le_targetTotalNum"), Qt::LeftButton);
        QVERIFY(number("le_targetTotalNum")->hasFocus());
        QVERIFY(press(&dialog(), Qt::Key_Escape));
        QVERIFY(!dialog().isVisible());
        QCOMPARE(boxes().take().size(), 0);
    }
};

QTEST_MAIN(NumberInputTest)
#include "tst_number_input.moc"
