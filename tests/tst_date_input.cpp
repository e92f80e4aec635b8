#include "AutoPlanField.h"
#include "ClientWindowTest.h"
#include "EditorForm.h"
#include "HintReader.h"
#include "Kelvo_Values.h"
#include "OrloDateEdit.h"
#include "SecurityStore.h"

#include <QLabel>
#include <QLineEdit>
#include <QtTest>

namespace BaseField = AutoPlanField::BaseField;

/// What a trader types in the date fields of the client's window, up to the stored plan. Today is Monday, 6 May 2024.
class DateInputTest : public ClientWindowTest {
    Q_OBJECT

private:
    void prepare() override
    {
        ClientWindowTest::prepare();
        openWindow();
        pressForEditor(Qt::Key_N);
        FormDriver driver = dialogDriver();
        driver.fill(ordinary());
        QCOMPARE(driver.takeProblems(), QStringList());
    }

    QLineEdit* line(const char* name) const { return field<QLineEdit>(*range(), name); }
    QWidget* range() const { return field<QWidget>(*dialogEditor(), "date_effectivePeriod_Multi"); }
    QString hint(const char* name) const { return hintAt(line(name)->parentWidget()); }

    void type(const char* name, const QString& text)
    {
        QTest::mouseClick(line(name), Qt::LeftButton);
        QTest::keyClicks(line(name), text);
    }

    /// Another share of the same exchange.
    static QString otherShare()
    {
        using namespace Kelvo_Values;
        SecurityStore store(ClientSession::instance().database());
        return store.firstSymbols(MdcSubSecurityType::Ashares, SymbolPost::sh, 2)->value(1);
    }

    QString stored(const QString& key) const { return plans().record(newestPlan())->value(key).toString(); }

private Q_SLOTS:
    void aTypedDateIsStored_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("end");
        QTest::newRow("digits") << QStringLiteral("20240514") << QStringLiteral("2024-05-14");
        QTest::newRow("month and day") << QStringLiteral("5-14") << QStringLiteral("2024-05-14");
        QTest::newRow("month and day as digits") << QStringLiteral("0514") << QStringLiteral("2024-05-14");
        QTest::newRow("days from the start") << QStringLiteral("+5") << QStringLiteral("2024-05-14");
    }

    void aTypedDateIsStored()
    {
        QFETCH(QString, typed);
        QFETCH(QString, end);
        type("le_end", typed);
        // The click on OK leaves the field.
        QCOMPARE(send(), QStringLiteral("交易自动规划创建成功!"));
        QCOMPARE(stored(BaseField::beginDate), QStringLiteral("2024-05-07"));
        QCOMPARE(stored(BaseField::endDate), end);
    }

    void aDateThatCannotBeUsedIsNotReplaced_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("reason");
        QTest::newRow("a Saturday") << QStringLiteral("2024-05-18") << QStringLiteral("2024-05-18不是交易日，不能选择");
        QTest::newRow("half a date") << QStringLiteral("2024-05")
                                     << QStringLiteral("无法识别“2024-05”，请输入日期，例如2026-12-04、1204、12-4或+5");
        QTest::newRow("a day that does not exist")
            << QStringLiteral("2024-04-31") << QStringLiteral("没有“2024-04-31”这一天");
        QTest::newRow("before the start")
            << QStringLiteral("2024-05-06") << QStringLiteral("结束日期不能早于开始日期2024-05-07");
    }

    void aDateThatCannotBeUsedIsNotReplaced()
    {
        QFETCH(QString, typed);
        QFETCH(QString, reason);
        type("le_end", typed);
        QCOMPARE(send("msgBoxError"), QStringLiteral("结束日期的输入无法使用：") + reason);
        QCOMPARE(*plans().count(), 0);
        QCOMPARE(line("le_end")->text(), typed);
        QVERIFY(line("le_end")->property("refused").toBool());
    }

    void theOfferedDayIsStored()
    {
        type("le_end", QStringLiteral("2024-05-18"));
        QVERIFY(!send("msgBoxError").isEmpty());
        QVERIFY(takeKeyboard(&dialog()));
        QTest::mouseClick(line("le_end"), Qt::LeftButton);
        QVERIFY2(hint("le_end").endsWith(QStringLiteral("改为2024-05-20 周一")), qPrintable(hint("le_end")));
        QTest::mouseClick(
            line("le_end")->parentWidget()->findChild<QLabel*>(QStringLiteral("fieldHint")), Qt::LeftButton);
        QCOMPARE(send(), QStringLiteral("交易自动规划创建成功!"));
        QCOMPARE(stored(BaseField::endDate), QStringLiteral("2024-05-20"));
    }

    void aStartThatCannotBeUsedLeavesTheEnd()
    {
        type("le_end", QStringLiteral("0514"));
        type("le_start", QStringLiteral("0511"));
        QCOMPARE(send("msgBoxError"), QStringLiteral("开始日期的输入无法使用：2024-05-11不是交易日，不能选择"));
        QCOMPARE(line("le_end")->text(), QStringLiteral("2024-05-14"));
    }

    void aCorrectedDateIsNotUnderlined()
    {
        type("le_end", QStringLiteral("2024-05-18"));
        QTest::keyClick(line("le_end"), Qt::Key_Tab);
        QVERIFY(line("le_end")->font().underline());
        type("le_end", QString());
        QTest::keyClick(line("le_end"), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(line("le_end"), QStringLiteral("0514"));
        QTest::keyClick(line("le_end"), Qt::Key_Tab);
        QCOMPARE(line("le_end")->text(), QStringLiteral("2024-05-14"));
        QVERIFY(!line("le_end")->font().underline());
    }

    void theChooserDoesNotOpenUnderAHint()
    {
        type("le_end", QStringLiteral("2024-05-18"));
        QVERIFY(!hint("le_end").isEmpty());
        QTest::keyClick(line("le_end"), Qt::Key_F4);
        auto* const chooser = dialog().findChild<QDialog*>(QStringLiteral("securityChooser"));
        QVERIFY(chooser);
        QVERIFY(takeKeyboard(chooser));
        QVERIFY(line("le_end")->property("refused").toBool());
        QCOMPARE(hint("le_end"), QString());
        QTest::keyClick(chooser, Qt::Key_Escape);
        QVERIFY(takeKeyboard(&dialog()));
        QVERIFY(line("le_end")->hasFocus());
        QVERIFY(!hint("le_end").isEmpty());
    }

    void datesStayWithAnotherSecurity_data()
    {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");
        QTest::addColumn<bool>("isMarked");
        QTest::newRow("no trading day") << QString() << QStringLiteral("20240518") << true;
        QTest::newRow("half a date") << QString() << QStringLiteral("2024-05") << true;
        QTest::newRow("a trading day") << QString() << QStringLiteral("2024-05-14") << false;
        QTest::newRow("both") << QStringLiteral("2024-05-10") << QStringLiteral("2024-05-14") << false;
        QTest::newRow("an end before the start")
            << QStringLiteral("2024-05-14") << QStringLiteral("2024-05-10") << true;
        QTest::newRow("a refused start") << QStringLiteral("0511") << QStringLiteral("2024-05-14") << false;
    }

    void datesStayWithAnotherSecurity()
    {
        QFETCH(QString, start);
        QFETCH(QString, end);
        QFETCH(bool, isMarked);
        if (!start.isEmpty())
            type("le_start", start);
        type("le_end", end);
        FormDriver driver = dialogDriver();
        driver.type("le_symbol", QString());
        driver.enterSymbol(otherShare());
        QCOMPARE(driver.takeProblems(), QStringList());
        QCOMPARE(line("le_start")->text(), start.isEmpty() ? QStringLiteral("2024-05-07") : start);
        QCOMPARE(line("le_end")->text(), end);
        QCOMPARE(line("le_end")->property("refused").toBool(), isMarked);
        const bool isRefused = isMarked || start == QStringLiteral("0511");
        QCOMPARE(send(isRefused ? "msgBoxError" : "msgBoxTip").isEmpty(), false);
        QCOMPARE(*plans().count(), isRefused ? 0 : 1);
    }

    void anEndThatFollowedTheStartFollowsItAgain()
    {
        type("le_end", QStringLiteral("0510"));
        type("le_start", QStringLiteral("0514"));
        FormDriver driver = dialogDriver();
        driver.type("le_symbol", QString());
        driver.enterSymbol(otherShare());
        QCOMPARE(line("le_start")->text(), QStringLiteral("2024-05-14"));
        QCOMPARE(line("le_end")->text(), QStringLiteral("2024-05-14"));
    }

    void theNextFormStartsWithItsOwnDates()
    {
        type("le_end", QStringLiteral("2024-05-14"));
        QVERIFY(!send().isEmpty());
        pressForEditor(Qt::Key_N);
        FormDriver driver = dialogDriver();
        driver.fill(ordinary());
        QCOMPARE(line("le_end")->text(), QStringLiteral("2024-05-07"));
    }

    void aReductionNeedsItsDate()
    {
        FormDriver driver = dialogDriver();
        driver.choose("combx_planType", QStringLiteral("JC-01"));
        auto* const dates = field<OrloDateEdit>(*dialogEditor(), "date_effectivePeriod_Single");
        auto* const single = field<QLineEdit>(*dates, "le_date");
        QTest::mouseClick(single, Qt::LeftButton);
        QTest::keyClick(single, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(single, QStringLiteral("5-18"));
        QTest::keyClick(single, Qt::Key_Tab);
        QCOMPARE(single->text(), QStringLiteral("5-18"));
        QVERIFY(!dates->GetDate().isValid());
    }
};

QTEST_MAIN(DateInputTest)
#include "tst_date_input.moc"
