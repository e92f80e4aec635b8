// Forms that were filled in and not sent before the client was killed.
#include "AutoPlanField.h"
#include "ClientWindowTest.h"
#include "DraftFile.h"
#include "ParamListWidget_single.h"
#include "PlanCodes.h"
#include "TestStatus.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QSettings>
#include <QTableView>
#include <QtTest>

using namespace PlanCodes;

namespace {

QDir settingsFolder()
{
    return QFileInfo(QSettings(QStringLiteral("plandesk"), QStringLiteral("plandesk")).fileName()).absoluteDir();
}

QStringList draftFiles()
{
    return settingsFolder().entryList({ QStringLiteral("drafts-*.json") }, QDir::Files);
}

QString draftText()
{
    const QStringList files = draftFiles();
    QFile file(settingsFolder().filePath(files.value(0)));
    return !files.isEmpty() && file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void replaceInDraft(const QString& before, const QString& after)
{
    const QString text = draftText();
    QFile file(settingsFolder().filePath(draftFiles().value(0)));
    QVERIFY(text.contains(before) && file.open(QIODevice::WriteOnly));
    file.write(QString(text).replace(before, after).toUtf8());
}

} // namespace

class FormDraftsTest : public ClientWindowTest {
    Q_OBJECT

private:
    /// Lets another client fill in a form, and kills it.
    void fillAndKill(const QStringList& form)
    {
        QProcess filler;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), QFileInfo(settingsFolder().path()).absolutePath());
        filler.setProcessEnvironment(environment);
        filler.start(QStringLiteral(FORM_FILLER_PROGRAM), QStringList{ session().file() } + form);
        QTRY_VERIFY_WITH_TIMEOUT(filler.canReadLine(), Patience);
        QCOMPARE(QString::fromUtf8(filler.readLine()), QStringLiteral("filled \n"));
        QTRY_VERIFY_WITH_TIMEOUT(draftText().contains(QStringLiteral("half")), Patience);
        filler.kill();
        QVERIFY(filler.waitForFinished());
        QCOMPARE(filler.exitStatus(), QProcess::CrashExit);
    }

    void take() { QTest::mouseClick(field<QPushButton>(window(), "btn_takeDraft"), Qt::LeftButton); }
    bool offers() const { return field<QWidget>(window(), "draftBar")->isVisible(); }
    QString shown(const char* name) const
    {
        auto* const widget = field<QWidget>(*dialogEditor(), name);
        auto* const line = qobject_cast<QLineEdit*>(widget);
        return (line ? line : widget->findChild<QLineEdit*>())->text();
    }

private Q_SLOTS:
    void aHalfFilledFormSurvivesAKill()
    {
        fillAndKill({ QStringLiteral("new"), share() });
        const QFileInfo file(settingsFolder().filePath(draftFiles().constFirst()));
        QCOMPARE(file.permissions() & ~(QFile::ReadUser | QFile::WriteUser), QFile::ReadOwner | QFile::WriteOwner);
        openWindow();
        QVERIFY(offers());
        const QString text = ::text(window(), "draftText");
        QVERIFY2(text.startsWith(QStringLiteral("上次有1个表单未提交：新建计划 ")), qPrintable(text));
        QVERIFY2(text.contains(QStringLiteral("12 cows")), qPrintable(text));
        take();
        QVERIFY(!offers());
        QCOMPARE(boxes().take().size(), 0);
        QCOMPARE(code(*dialogEditor(), "combx_fundAccount"), ReviewedAccount);
        QCOMPARE(shown("le_targetTotalNum"), QStringLiteral("12 cows"));
        QCOMPARE(shown("le_entrustMaxNum"), QStringLiteral("500"));
        QCOMPARE(shown("lineEdit_price1"), QStringLiteral("17.49"));
        QCOMPARE(shown("le_remark"), QStringLiteral("half"));
        QCOMPARE(dialogEditor()->findChild<ParamListWidget_single*>()->GetStrategyName(), QStringLiteral("TWAP"));

        dialogDriver().type("le_targetTotalNum", QStringLiteral("10000"));
        QCOMPARE(send(), QStringLiteral("交易自动规划创建成功!"));
        const auto record = plans().record(newestPlan());
        QCOMPARE(record->value(AutoPlanField::BaseField::totalQty).toString(), QStringLiteral("10000"));
        QCOMPARE(record->value(AutoPlanField::BaseField::priceFormula1).toString(), QStringLiteral("17.49"));
        QCOMPARE(record->value(AutoPlanField::BaseField::InstMode).toString(), QString(InstMode::AlgoReview));
        QTRY_COMPARE(draftFiles(), QStringList());
    }

    void aDiscardedFormIsNotOfferedAgain()
    {
        fillAndKill({ QStringLiteral("new"), share() });
        openWindow();
        QTest::mouseClick(field<QPushButton>(window(), "btn_dropDraft"), Qt::LeftButton);
        QVERIFY(!offers());
        QTRY_COMPARE(draftFiles(), QStringList());
    }

    void aFormThatIsNotTakenIsOfferedAgain()
    {
        fillAndKill({ QStringLiteral("new"), share() });
        openWindow();
        QVERIFY(offers());
        closeWindow();
        openWindow();
        QVERIFY(offers());
    }

    // The bar of the last form disappears, and a row of the table is where its button was.
    void aSecondClickDoesNotOpenThePlanBelow()
    {
        createSamples(6);
        fillAndKill({ QStringLiteral("new"), share() });
        openWindow();
        auto* const table = field<QTableView>(window(), "planTable");
        const QPoint row = table->visualRect(table->model()->index(0, 0)).center();
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, row);
        take();
        QVERIFY(!offers());
        const QPoint global = table->viewport()->mapToGlobal(row);
        QMouseEvent second(QEvent::MouseButtonDblClick, row, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(table->viewport(), &second);
        QTest::mouseRelease(table->viewport(), Qt::LeftButton, {}, row);
        QCoreApplication::processEvents();
        for (const QWidget* const shown : QApplication::topLevelWidgets())
            QVERIFY2(!shown->isVisible() || !shown->windowTitle().startsWith(QStringLiteral("修改计划")),
                qPrintable(shown->windowTitle()));
        QCOMPARE(dialog().windowTitle(), QStringLiteral("新建计划"));
        // A double click on a row opens it as before.
        QVERIFY(takeKeyboard(&window()));
        QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, row);
        QVERIFY(dialog().windowTitle().startsWith(QStringLiteral("修改计划 ")));
    }

    void anEditStaysOneOfItsVersion()
    {
        const QString plan = session().create(SampleSession::record());
        fillAndKill({ QStringLiteral("edit"), plan });
        auto record = SampleSession::record();
        record.insert(AutoPlanField::BaseField::remark, QStringLiteral("other"));
        QVERIFY(bool(plans().modify(plan, 1, record, ClientSession::instance().changeNow())));
        openWindow();
        take();
        QCOMPARE(dialog().windowTitle(), QStringLiteral("修改计划 ") + plan);
        QCOMPARE(shown("le_remark"), QStringLiteral("half"));
        QCOMPARE(shown("le_targetTotalNum"), QStringLiteral("12 cows"));
        QVERIFY(field<QWidget>(dialog(), "changeNotice")->isVisible());
    }

    void whatCannotBeRestoredIsSaid()
    {
        fillAndKill({ QStringLiteral("new"), share() });
        replaceInDraft(QStringLiteral("\"TWAP\""), QStringLiteral("\"GONE\""));
        replaceInDraft(share(), QStringLiteral("999999.SH"));
        openWindow();
        const QString text = boxOf([this] { take(); }, "msgBoxWarning");
        QVERIFY2(text.contains(QStringLiteral("GONE")), qPrintable(text));
        QVERIFY2(text.contains(QStringLiteral("证券代码")), qPrintable(text));
        QCOMPARE(text.count(QLatin1Char('\n')), 2);
        QCOMPARE(shown("le_remark"), QStringLiteral("half"));
    }

    void aClosedFormLeavesNoDraft()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        QTest::keyClicks(field<QLineEdit>(*dialogEditor(), "le_remark"), QStringLiteral("x"));
        QTRY_COMPARE(draftFiles().size(), 1);
        boxOf([this] { press(&dialog(), Qt::Key_Escape); }, "msgBoxQuestion");
        QTRY_COMPARE(draftFiles().size(), 0);
    }

    void clientsOfTheSameUserKeepTheirOwn()
    {
        FormDraft draft;
        draft.id = QStringLiteral("1");
        auto first = std::make_unique<DraftFile>();
        first->keep(draft);
        auto second = std::make_unique<DraftFile>();
        QCOMPARE(second->left().size(), 0);
        draft.id = QStringLiteral("2");
        second->keep(draft);
        first.reset();
        second.reset();
        QCOMPARE(draftFiles().size(), 2);
        QCOMPARE(DraftFile().left().size(), 2);
        QCOMPARE(draftFiles().size(), 1);
        QCOMPARE(DraftFile().left().size(), 2);
    }
};

QTEST_MAIN(FormDraftsTest)
#include "tst_form_drafts.moc"
