// The trader's decisions in the window: what goes out today, and the states of plans.
#include "AutoPlanField.h"
#include "ClientClock.h"
#include "ClientWindowTest.h"
#include "DataFolder.h"
#include "ErrorText.h"
#include "HistoryStore.h"
#include "InstructionIssuer.h"
#include "IssueSheet.h"
#include "IssueSheetModel.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "PlanCodes.h"
#include "PlanColumns.h"
#include "PlanPane.h"
#include "PlanTable.h"
#include "PositionStore.h"
#include "TestStatus.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QProgressBar>
#include <QProgressDialog>
#include <QRegularExpression>
#include <QTableView>
#include <QTimer>
#include <QtTest>

#include <algorithm>

class DeskTest : public ClientWindowTest {
    Q_OBJECT

private Q_SLOTS:
    // --- What goes out today

    void theSheetShowsWhatWouldGoOut()
    {
        const QString plan = createSamples(1).constFirst();
        const QString refused = *plans().create(
            customPrice(SampleSession::record(), QStringLiteral("1-1")), ClientSession::instance().changeNow());
        openSheet(2);
        QCOMPARE(cell(1, IssueSheetModel::Plan), refused);
        QVERIFY2(cell(1, IssueSheetModel::ResultColumn).startsWith(QStringLiteral("不能下达：")),
            qPrintable(cell(1, IssueSheetModel::ResultColumn)));
        QCOMPARE(cell(0, IssueSheetModel::Plan), plan);
        QCOMPARE(cell(0, IssueSheetModel::Side), QStringLiteral("买入"));
        QCOMPARE(cell(0, IssueSheetModel::Price), QStringLiteral("不限价"));
        QCOMPARE(cell(0, IssueSheetModel::Quantity), QStringLiteral("300 股"));
        const QVariant color = rows()->index(0, IssueSheetModel::Side).data(Qt::ForegroundRole);
        QCOMPARE(color.value<QColor>().name(), QStringLiteral("#b3261e"));
        QCOMPARE(cell(0, IssueSheetModel::ResultColumn), QString());
        QCOMPARE(cell(0, IssueSheetModel::Amount), QStringLiteral("5,247.00"));
        QCOMPARE(text("issueSums"), QStringLiteral("账户100001 买入 1笔 5,247.00元，资金未知"));
        QCOMPARE(button("btn_issue")->text(), QStringLiteral("下达1条……"));
    }

    void nothingIsIssuedWithoutAFileOfClosures()
    {
        const DataFolder folder;
        createSamples(1);
        openSheet(1);
        log().allowWarning(QStringLiteral("test.csv"));
        QVERIFY(folder.addClosures("a,b\n"));
        const QString missing = errorText(ClosureFiles::status());
        QVERIFY2(missing.startsWith(QStringLiteral("无法使用休市表")), qPrintable(missing));
        // The plans that were read before.
        boxOf([this] { click("btn_issue"); }, "msgBoxQuestion");
        QTRY_VERIFY_WITH_TIMEOUT(!isWorking(), Patience);
        QVERIFY2(text("issueText").endsWith(missing), qPrintable(text("issueText")));
        QCOMPARE(issued(), 0);
        reopenSheet(0);
        QCOMPARE(text("issueText"), missing);
        QVERIFY(!button("btn_issue")->isEnabled());
    }

    void noSingleKeyIssues()
    {
        createSamples(1);
        openSheet(1);
        QVERIFY(press(sheet(), Qt::Key_Return));
        QVERIFY(!sheet()->isVisible());
        QCOMPARE(issued(), 0);
    }

    void aDeclinedQuestionIssuesNothing()
    {
        createSamples(1);
        openSheet(1);
        const QString question = boxOf([this] { click("btn_issue"); }, "msgBoxQuestion", false);
        QVERIFY2(question.startsWith(QStringLiteral("下达1条指令？\n账户100001 买入 1笔 ")), qPrintable(question));
        QVERIFY(!isWorking());
        QCOMPARE(issued(), 0);
    }

    void theChosenPlansAreIssuedAndEachRowTellsTheResult()
    {
        createSamples(3);
        openSheet(3);
        toggle(1);
        QCOMPARE(button("btn_issue")->text(), QStringLiteral("下达2条……"));
        boxOf([this] { click("btn_issue"); }, "msgBoxQuestion");
        QTRY_VERIFY_WITH_TIMEOUT(!isWorking(), Patience);
        QCOMPARE(text("issueText"), QStringLiteral("已下达2条，此前已下达0个，未下达0个。"));
        QCOMPARE(cell(0, IssueSheetModel::ResultColumn), QStringLiteral("已下达 AP00000001-000001"));
        QCOMPARE(cell(1, IssueSheetModel::ResultColumn), QString());
        QCOMPARE(cell(2, IssueSheetModel::ResultColumn), QStringLiteral("已下达 AP00000003-000001"));
        QCOMPARE(issued(), 2);
        window().selectPlan(QStringLiteral("AP00000001"));
        const auto labels = field<QWidget>(window(), "planDetails")->findChildren<QLabel*>();
        const auto isHeading = [](const QLabel* label) { return label->text() == QStringLiteral("已下达指令"); };
        QVERIFY(std::any_of(labels.cbegin(), labels.cend(), isHeading));
        QVERIFY(!button("btn_issue")->isEnabled());
        QVERIFY(!isAllChosen());
        toggle(1);
        QVERIFY(isAllChosen());
        QCOMPARE(button("btn_issue")->text(), QStringLiteral("下达1条……"));
    }

    void allPlansAreChosenAndLeftOutByOneBox()
    {
        createSamples(2);
        openSheet(2);
        clickAll();
        QVERIFY(!button("btn_issue")->isEnabled());
        QCOMPARE(text("issueSums"), QStringLiteral("没有选择计划"));
        clickAll();
        QCOMPARE(button("btn_issue")->text(), QStringLiteral("下达2条……"));
    }

    void aPlanThatAColleagueHasIssuedMeanwhileIsNotIssuedAgain()
    {
        const QString plan = createSamples(1).constFirst();
        openSheet(1);
        QVERIFY(InstructionIssuer::issueDay(SampleSession::today()));
        boxOf([this] { click("btn_issue"); }, "msgBoxQuestion");
        QTRY_VERIFY_WITH_TIMEOUT(!isWorking(), Patience);
        QCOMPARE(cell(0, IssueSheetModel::ResultColumn), QStringLiteral("此前已下达"));
        QCOMPARE(cell(0, IssueSheetModel::Quantity), QString());
        QCOMPARE(issued(), 1);
    }

    void aRestoredBackupGetsNoInstructions()
    {
        // The session has no file of its own.
        if (TestDatabase::isOnServer())
            return;
        createSamples(2);
        openSheet(2);
        const QByteArray restored = restoreBackup();
        QVERIFY(!restored.isEmpty());
        boxOf([this] { click("btn_issue"); }, "msgBoxQuestion");
        QTRY_VERIFY_WITH_TIMEOUT(!isWorking(), Patience);
        QVERIFY2(text("issueText").endsWith(errorText(Error::DatabaseFileChanged)), qPrintable(text("issueText")));
        QCOMPARE(fileContent(), restored);
        // A sheet that is opened now does not read it, either.
        sheet()->close();
        QVERIFY(press(&window(), Qt::Key_I, Qt::ControlModifier));
        QTRY_VERIFY_WITH_TIMEOUT(!isWorking(), Patience);
        QVERIFY2(text("issueText").endsWith(errorText(Error::DatabaseFileChanged)), qPrintable(text("issueText")));
        QCOMPARE(fileContent(), restored);
    }

    void onlyWhatWasConfirmedGoesOut()
    {
        QCOMPARE(session().setHoldings(200000), Status());
        for (const char* const quantity : { "150000", "100000" })
            QVERIFY(!session().create(sale(QLatin1String(quantity))).isEmpty());
        openSheet(2);
        QCOMPARE(cell(1, IssueSheetModel::Quantity), QStringLiteral("50,000 股"));
        QCOMPARE(cell(1, IssueSheetModel::ResultColumn), QStringLiteral("数量按可卖数量减少"));
        toggle(0);
        QTRY_COMPARE_WITH_TIMEOUT(cell(1, IssueSheetModel::Quantity), QStringLiteral("100,000 股"), Patience);
        QCOMPARE(cell(1, IssueSheetModel::ResultColumn), QString());
        const QString amount = cell(1, IssueSheetModel::Amount);
        const QString question = issueChosen();
        QVERIFY2(question.contains(QStringLiteral("卖出 1笔 %1元").arg(amount)), qPrintable(question));
        QCOMPARE(storedOrders(), QStringList(QStringLiteral("AP00000002 100000")));
        // The rest of the holdings.
        QTRY_COMPARE_WITH_TIMEOUT(cell(0, IssueSheetModel::Quantity), QStringLiteral("100,000 股"), Patience);
        toggle(0);
        issueChosen();
        QCOMPARE(
            storedOrders(), (QStringList{ QStringLiteral("AP00000001 100000"), QStringLiteral("AP00000002 100000") }));
        // What was issued before is still shown.
        QCOMPARE(cell(0, IssueSheetModel::ResultColumn), QStringLiteral("已下达 AP00000001-000001"));
        QCOMPARE(cell(1, IssueSheetModel::ResultColumn), QStringLiteral("已下达 AP00000002-000001"));
    }

    void aPlanThatCannotBeIssuedBesideAnotherComesBack()
    {
        QCOMPARE(session().setHoldings(1000), Status());
        for (int i = 0; i < 2; ++i)
            QVERIFY(!session().create(sale(QStringLiteral("1000"))).isEmpty());
        openSheet(2);
        QCOMPARE(cell(1, IssueSheetModel::ResultColumn), QStringLiteral("不能下达：可卖数量不足一手"));
        QCOMPARE(button("btn_issue")->text(), QStringLiteral("下达1条……"));
        toggle(0);
        QTRY_COMPARE_WITH_TIMEOUT(cell(1, IssueSheetModel::Quantity), QStringLiteral("1,000 股"), Patience);
        QCOMPARE(cell(1, IssueSheetModel::ResultColumn), QString());
        toggle(0);
        QTRY_COMPARE_WITH_TIMEOUT(
            cell(1, IssueSheetModel::ResultColumn), QStringLiteral("不能下达：可卖数量不足一手"), Patience);
        QCOMPARE(button("btn_issue")->text(), QStringLiteral("下达1条……"));
    }

    void whatAColleagueChangesIsConfirmedAgain()
    {
        createSamples(2);
        openSheet(2);
        changeByColleague(QStringLiteral("AP00000001"));
        issueChosen();
        QCOMPARE(text("issueText"), QStringLiteral("已下达1条，此前已下达0个，未下达1个。"));
        QCOMPARE(storedOrders(), QStringList(QStringLiteral("AP00000002 300")));
        QCOMPARE(cell(0, IssueSheetModel::ResultColumn), QStringLiteral("未下达：已变化，请重新确认"));
        QTRY_COMPARE_WITH_TIMEOUT(cell(0, IssueSheetModel::Quantity), QStringLiteral("200 股"), Patience);
        QVERIFY(!isAllChosen());
        toggle(0);
        QCOMPARE(cell(0, IssueSheetModel::ResultColumn), QString());
        issueChosen();
        QCOMPARE(storedOrders(), (QStringList{ QStringLiteral("AP00000001 200"), QStringLiteral("AP00000002 300") }));
        QCOMPARE(cell(1, IssueSheetModel::ResultColumn), QStringLiteral("已下达 AP00000002-000001"));
    }

    void whatAColleaguePausesIsNotIssued()
    {
        createSamples(1);
        openSheet(1);
        Database file;
        QCOMPARE(file.open(session().ownersFile()), Status());
        QCOMPARE(
            PlanStore(file).setState(QStringLiteral("AP00000001"), 1, PlanState::Paused, {}, byColleague()), Status());
        issueChosen();
        QCOMPARE(issued(), 0);
        QCOMPARE(
            cell(0, IssueSheetModel::ResultColumn), QStringLiteral("未下达：当日不再有效，已被修改、暂停、停止或完成"));
    }

    void aSheetOfYesterdayIssuesNothing()
    {
        createSamples(1);
        openSheet(1);
        setClientTime(QDateTime(SampleSession::today().addDays(1), QTime(3, 0), Qt::OffsetFromUTC, 8 * 3600));
        QCOMPARE(boxOf([this] { click("btn_issue"); }, "msgBoxWarning"),
            QStringLiteral("2024-05-06已经过去，没有下达。请核对今天的计划。"));
        QTRY_VERIFY_WITH_TIMEOUT(!isWorking(), Patience);
        QCOMPARE(issued(), 0);
        QCOMPARE(sheet()->windowTitle(), QStringLiteral("下达当日指令 - 2024-05-07"));
        QVERIFY2(cell(0, IssueSheetModel::ResultColumn).startsWith(QStringLiteral("不能下达：不在该市场的委托时间")),
            qPrintable(cell(0, IssueSheetModel::ResultColumn)));
    }

    void aChoiceInASheetOfYesterdayReadsToday()
    {
        QCOMPARE(session().setHoldings(5000), Status());
        for (const char* const quantity : { "1000", "2000" })
            QVERIFY(!session().create(sale(QLatin1String(quantity))).isEmpty());
        openSheet(2);
        setClientTime(QDateTime(SampleSession::today().addDays(1), QTime(10, 0), Qt::OffsetFromUTC, 8 * 3600));
        QCOMPARE(boxOf([this] { toggle(0); }, "msgBoxWarning"),
            QStringLiteral("2024-05-06已经过去，没有下达。请核对今天的计划。"));
        QTRY_VERIFY_WITH_TIMEOUT(!isWorking(), Patience);
        QCOMPARE(sheet()->windowTitle(), QStringLiteral("下达当日指令 - 2024-05-07"));
        QCOMPARE(rows()->rowCount(), 2);
        QCOMPARE(cell(0, IssueSheetModel::Quantity), QStringLiteral("1,000 股"));
        issueChosen();
        QCOMPARE(issued(), 2);
    }

    void aDayWithoutPlansSaysSo()
    {
        openSheet(0);
        QCOMPARE(text("issueText"), QStringLiteral("今天没有要下达的计划。"));
        QVERIFY(!button("btn_issue")->isEnabled());
    }

    void aCancelledIssueIsContinuedInTheSheet()
    {
        constexpr int PlansOfFirstPart = 500;
        createSamples(1);
        QCOMPARE(session().multiply(PlansOfFirstPart + 2), Status());
        openSheet(PlansOfFirstPart + 2);
        const QString done = QStringLiteral("已下达%1条，此前已下达0个，未下达0个。");
        whileAnotherClientWrites([this] {
            boxOf([this] { click("btn_issue"); }, "msgBoxQuestion");
            const auto* const progress = sheet()->findChild<QProgressBar*>();
            QVERIFY(progress->isVisible());
            QCOMPARE(progress->maximum(), PlansOfFirstPart + 2);
            QCOMPARE(text("issueText"), QStringLiteral("正在下达……"));
            click("btn_close");
        });
        QTRY_VERIFY_WITH_TIMEOUT(!isWorking(), Patience);
        QVERIFY(sheet()->isVisible());
        QCOMPARE(text("issueText"), done.arg(PlansOfFirstPart) + QStringLiteral("其余已取消，可以再次下达。"));
        QCOMPARE(issued(), PlansOfFirstPart);
        clickAll();
        QCOMPARE(button("btn_issue")->text(), QStringLiteral("下达2条……"));
        issueChosen();
        QCOMPARE(text("issueText"), done.arg(2));
        QCOMPARE(issued(), PlansOfFirstPart + 2);
    }

    void whatIsSoldCannotBeSoldAgain()
    {
        QCOMPARE(session().setHoldings(1000), Status());
        for (int i = 0; i < 2; ++i)
            QVERIFY(!session().create(sale(QStringLiteral("1000"))).isEmpty());
        openSheet(2);
        issueChosen();
        QCOMPARE(storedOrders(), QStringList(QStringLiteral("AP00000001 1000")));
        QCOMPARE(holdings(), 0);
        // The first one is completed.
        QTest::keyClick(sheet(), Qt::Key_Escape);
        setClientToday(SampleSession::today().addDays(1));
        reopenSheet(1);
        QCOMPARE(cell(0, IssueSheetModel::Plan), QStringLiteral("AP00000002"));
        QCOMPARE(cell(0, IssueSheetModel::ResultColumn),
            QStringLiteral("不能下达：可卖数量不足一手；2024-05-06漏下达，不补下达"));
        QVERIFY(!button("btn_issue")->isEnabled());
    }

    void whatIsBoughtCanBeSoldOnTheNextDay()
    {
        QCOMPARE(session().setHoldings(0), Status());
        createSamples(1);
        QVERIFY(!session().create(sale(QStringLiteral("300"))).isEmpty());
        openSheet(2);
        QCOMPARE(cell(1, IssueSheetModel::ResultColumn), QStringLiteral("不能下达：可卖数量不足一手"));
        issueChosen();
        QCOMPARE(holdings(), 300);
        QTRY_COMPARE_WITH_TIMEOUT(
            cell(1, IssueSheetModel::ResultColumn), QStringLiteral("不能下达：可卖数量不足一手"), Patience);
        QTest::keyClick(sheet(), Qt::Key_Escape);
        setClientToday(SampleSession::today().addDays(1));
        reopenSheet(2);
        QCOMPARE(cell(1, IssueSheetModel::Quantity), QStringLiteral("300 股"));
        issueChosen();
        // The other plan has bought 300 more.
        QCOMPARE(holdings(), 300);
    }

    // --- The states of plans

    void aPlanIsPausedAndResumed()
    {
        const QString plan = createSamples(1).constFirst();
        openWindow();
        act("action_pause");
        // No other change begins meanwhile.
        QVERIFY(!window().findChild<QAction*>(QStringLiteral("action_stop"))->isEnabled());
        QTRY_COMPARE_WITH_TIMEOUT(stored(plan).state, PlanState::Paused, Patience);
        QTRY_COMPARE_WITH_TIMEOUT(status(), QStringLiteral("1个计划已暂停"), Patience);
        act("action_resume");
        QTRY_COMPARE_WITH_TIMEOUT(stored(plan).state, PlanState::Active, Patience);
    }

    void aPlanOfARestoredBackupIsNotPaused()
    {
        // The session has no file of its own.
        if (TestDatabase::isOnServer())
            return;
        const QString plan = createSamples(1).constFirst();
        openWindow();
        const QByteArray restored = restoreBackup();
        QVERIFY(!restored.isEmpty());
        boxes().expect(QStringLiteral("msgBoxError"), true);
        act("action_pause");
        QVector<MessageBoxResponder::Box> seen;
        QTRY_VERIFY_WITH_TIMEOUT(!(seen += boxes().take()).isEmpty(), Patience);
        QVERIFY2(
            seen.constFirst().text.endsWith(errorText(Error::DatabaseFileChanged)), qPrintable(seen.constFirst().text));
        QCOMPARE(stored(plan).state, PlanState::Active);
        QCOMPARE(fileContent(), restored);
    }

    void anExchangedFileIsNoticedByItself()
    {
        // The session has no file of its own.
        if (TestDatabase::isOnServer())
            return;
        createSamples(1);
        openWindow();
        const auto* const mark = field<QLabel>(window(), "outdated");
        QVERIFY(!mark->isVisible());
        QVERIFY(!restoreBackup().isEmpty());
        QTRY_VERIFY_WITH_TIMEOUT(mark->isVisible(), Patience);
        QVERIFY2(mark->text().contains(errorText(Error::DatabaseFileChanged)), qPrintable(mark->text()));
    }

    void severalPlansArePausedAtOnce()
    {
        const QStringList ids = createSamples(3);
        openWindow();
        QTest::keyClick(table(), Qt::Key_Down, Qt::ShiftModifier);
        act("action_pause");
        QTRY_COMPARE_WITH_TIMEOUT(status(), QStringLiteral("2个计划已暂停"), Patience);
        QCOMPARE(stored(ids.at(0)).state, PlanState::Paused);
        QCOMPARE(stored(ids.at(1)).state, PlanState::Paused);
        QCOMPARE(stored(ids.at(2)).state, PlanState::Active);
    }

    void theContextMenuPausesTheClickedPlan()
    {
        const QStringList ids = createSamples(2);
        openWindow();
        const QPoint place = table()->visualRect(table()->model()->index(1, 1)).center();
        QTest::mouseClick(table()->viewport(), Qt::RightButton, {}, place);
        QTimer::singleShot(0, this, [this] { clickOn(QApplication::activePopupWidget(), "action_pause"); });
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, table()->viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(table()->viewport(), &event);
        QTRY_COMPARE_WITH_TIMEOUT(status(), QStringLiteral("1个计划已暂停"), Patience);
        QCOMPARE(stored(ids.at(1)).state, PlanState::Paused);
        QCOMPARE(stored(ids.at(0)).state, PlanState::Active);
    }

    void aStoppedPlanIsArchived()
    {
        const QString plan = createSamples(1).constFirst();
        QCOMPARE(ClientSession::instance().plans().setState(
                     plan, 1, PlanState::Stopped, QStringLiteral("r"), ClientSession::instance().changeNow()),
            Status());
        openWindow();
        act("action_archive");
        QTRY_COMPARE_WITH_TIMEOUT(stored(plan).state, PlanState::Archived, Patience);
        QTRY_COMPARE_WITH_TIMEOUT(status(), QStringLiteral("1个计划已归档"), Patience);
    }

    void archivedPlansAreAListOfTheirOwn()
    {
        const QStringList ids = createSamples(2);
        QCOMPARE(ClientSession::instance().plans().setState(
                     ids.at(0), 1, PlanState::Stopped, QStringLiteral("r"), ClientSession::instance().changeNow()),
            Status());
        openWindow();
        QTest::mouseClick(
            table()->viewport(), Qt::LeftButton, {}, table()->visualRect(table()->model()->index(0, 0)).center());
        QCOMPARE(window().currentPlan(), ids.at(0));
        act("action_archive");
        QTRY_COMPARE_WITH_TIMEOUT(status(), QStringLiteral("1个计划已归档"), Patience);
        QCOMPARE(listed(), QStringList{ ids.at(1) });
        for (const char* const filter : { "filter_own", "filter_all", "filter_archived" }) {
            QTest::mouseClick(field<QAbstractButton>(window(), filter), Qt::LeftButton);
            const bool isArchived = qstrcmp(filter, "filter_archived") == 0;
            QCOMPARE(listed(), QStringList{ ids.at(isArchived ? 0 : 1) });
        }
        QVERIFY(press(field<QWidget>(window(), "le_search"), Qt::Key_3));
        QCOMPARE(listed(), QStringList());
        QVERIFY(press(field<QWidget>(window(), "le_search"), Qt::Key_Escape));
        QCOMPARE(listed(), QStringList{ ids.at(0) });
    }

    void anArchivedPlanIsShownInItsList()
    {
        const QStringList ids = createSamples(2);
        QCOMPARE(ClientSession::instance().plans().setState(
                     ids.at(0), 1, PlanState::Archived, {}, ClientSession::instance().changeNow()),
            Status());
        openWindow();
        QCOMPARE(listed(), QStringList{ ids.at(1) });
        auto* const pane = window().findChild<PlanPane*>();
        pane->goTo(ids.at(0));
        QVERIFY(field<QAbstractButton>(window(), "filter_archived")->isChecked());
        QCOMPARE(window().currentPlan(), ids.at(0));
        pane->goTo(ids.at(1));
        QVERIFY(field<QAbstractButton>(window(), "filter_all")->isChecked());
        QCOMPARE(window().currentPlan(), ids.at(1));
        pane->goTo(QStringLiteral("AP00000099"));
        QVERIFY(field<QAbstractButton>(window(), "filter_all")->isChecked());
    }

    void aChangeOfStatesIsCancelled()
    {
        createSamples(1);
        QCOMPARE(session().multiply(1200), Status());
        openWindow();
        whileAnotherClientWrites([this] {
            boxOf([this] { act("action_pauseAll"); }, "msgBoxQuestion");
            const QPointer<QProgressDialog> progress =
                window().findChild<QProgressDialog*>(QStringLiteral("stateProgress"));
            QTRY_VERIFY_WITH_TIMEOUT(!progress || progress->isVisible(), Patience);
            QVERIFY(progress);
            QTest::mouseClick(progress->findChild<QAbstractButton*>(), Qt::LeftButton);
        });
        const QRegularExpression cancelled(QStringLiteral("^(\\d+)个计划已暂停，其余已取消$"));
        QTRY_VERIFY_WITH_TIMEOUT(cancelled.match(status()).hasMatch(), Patience);
        const auto paused = ClientSession::instance().database().value(
            QStringLiteral("SELECT count(*) FROM plans WHERE state = 'paused'"));
        QCOMPARE(paused->toString(), cancelled.match(status()).captured(1));
        QVERIFY(paused->toInt() < 1200);
    }

    void stoppingAsksForTheReason()
    {
        const QString plan = createSamples(1).constFirst();
        openWindow();
        QTimer::singleShot(0, this, [this] {
            QWidget* const dialog = QApplication::activeModalWidget();
            QVERIFY(dialog);
            auto* const stop = dialog->findChild<QAbstractButton*>(QStringLiteral("btn_stop"));
            QVERIFY(!stop->isEnabled());
            QTest::keyClicks(dialog->findChild<QLineEdit*>(QStringLiteral("le_reason")), QStringLiteral("halt"));
            QVERIFY(stop->isEnabled());
            QTest::mouseClick(stop, Qt::LeftButton);
        });
        act("action_stop");
        QTRY_COMPARE_WITH_TIMEOUT(stored(plan).state, PlanState::Stopped, Patience);
        const auto entries = *HistoryStore(ClientSession::instance().database()).ofPlan(1);
        QCOMPARE(entries.last().after.value(QStringLiteral("reason")).toString(), QStringLiteral("halt"));
    }

    void aPlanThatIsNotStoppedStays()
    {
        const QString plan = createSamples(1).constFirst();
        openWindow();
        QTimer::singleShot(0, this, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
        act("action_stop");
        QCOMPARE(stored(plan).state, PlanState::Active);
    }

    void aStateThatCannotFollowIsExplained()
    {
        const QString plan = createSamples(1).constFirst();
        openWindow();
        boxes().expect(QStringLiteral("msgBoxWarning"), true);
        act("action_archive");
        QVector<MessageBoxResponder::Box> seen;
        QTRY_VERIFY_WITH_TIMEOUT(!(seen += boxes().take()).isEmpty(), Patience);
        QCOMPARE(seen.constFirst().text, QStringLiteral("计划%1进行中，不能变为已归档").arg(plan));
        QCOMPARE(stored(plan).state, PlanState::Active);
    }

    void allPlansOfAnAccountArePausedAfterAQuestion()
    {
        const QStringList ids = createSamples(3);
        openWindow();
        QCOMPARE(
            boxOf([this] { act("action_pauseAll"); }, "msgBoxQuestion"), QStringLiteral("暂停账户100001的全部计划？"));
        QTRY_COMPARE_WITH_TIMEOUT(status(), QStringLiteral("3个计划已暂停"), Patience);
        for (const QString& plan : ids)
            QCOMPARE(stored(plan).state, PlanState::Paused);
    }

private:
    IssueSheet* sheet() const { return window().findChild<IssueSheet*>(); }
    QAbstractItemModel* rows() const { return sheet()->findChild<IssueSheetModel*>(); }
    QString cell(int row, int column) const { return rows()->index(row, column).data().toString(); }
    QString text(const char* name) const { return sheet()->findChild<QLabel*>(QLatin1String(name))->text(); }
    bool isWorking() const { return button("btn_close")->text() == QStringLiteral("取消"); }

    QAbstractButton* button(const char* name) const
    {
        return sheet()->findChild<QAbstractButton*>(QLatin1String(name));
    }

    void click(const char* name) const { QTest::mouseClick(button(name), Qt::LeftButton); }

    /// Opens the sheet by its key, and waits until it has read as many plans.
    void openSheet(int plans)
    {
        openWindow();
        reopenSheet(plans);
    }

    void reopenSheet(int plans) const
    {
        QVERIFY(press(&window(), Qt::Key_I, Qt::ControlModifier));
        QVERIFY(sheet() && sheet()->isVisible());
        QTRY_VERIFY_WITH_TIMEOUT(!isWorking(), Patience);
        QCOMPARE(rows()->rowCount(), plans);
    }

    void clickAll() const
    {
        QTest::mouseClick(button("cb_all"), Qt::LeftButton, {}, QPoint(8, button("cb_all")->height() / 2));
    }

    bool isAllChosen() const { return button("cb_all")->isChecked(); }

    /// Clicks, confirms and returns the question.
    QString issueChosen()
    {
        const auto isReady = [this] { return button("btn_issue")->isEnabled(); };
        if (!QTest::qWaitFor(isReady, Patience))
            return QString();
        const QString question = boxOf([this] { click("btn_issue"); }, "msgBoxQuestion");
        const bool isDone = QTest::qWaitFor([this] { return !isWorking(); }, Patience);
        return isDone ? question : QString();
    }

    static QMap<QString, QVariant> sale(const QString& quantity)
    {
        const auto unlimited = SampleSession::withOther(
            SampleSession::record(), { { AutoPlanField::Progress::CurrentQty, QStringLiteral("0") } });
        return with(with(unlimited, AutoPlanField::BaseField::totalQty, quantity), AutoPlanField::BaseField::orderSide,
            Kelvo_Values::OrderSide::sell);
    }

    static Change byColleague() { return { QStringLiteral("trader03"), clientNow() }; }

    void changeByColleague(const QString& plan) const
    {
        Database file;
        QCOMPARE(file.open(session().ownersFile()), Status());
        const auto record = SampleSession::withOther(
            stored(plan).record, { { AutoPlanField::Progress::CurrentQty, QStringLiteral("200") } });
        QCOMPARE(PlanStore(file).modify(plan, 1, record, byColleague()), Status());
    }

    /// Plans and quantities of all instructions.
    static QStringList storedOrders()
    {
        QStringList orders;
        const auto plans = ClientSession::instance().plans().plansOfDay(SampleSession::today());
        for (const QString& plan : plans->issued) {
            const auto instructions = ClientSession::instance().instructions().ofPlan(plan).valueOr({});
            for (const auto& fields : instructions)
                orders << plan + QLatin1Char(' ') + fields.value(PlanCodes::FieldId::IssuedQty).toString();
        }
        return orders;
    }

    /// Presses the space bar on a row.
    void toggle(int row) const
    {
        auto* const table = sheet()->findChild<QTableView*>();
        table->setCurrentIndex(rows()->index(row, IssueSheetModel::Plan));
        QTest::keyClick(table, Qt::Key_Space);
    }

    QString status() const { return field<QLabel>(window(), "status")->text(); }
    PlanTable* table() const { return window().findChild<PlanTable*>(); }

    /// Clicks an entry of an open menu.
    void clickOn(QWidget* menu, const char* name) const
    {
        auto* const open = qobject_cast<QMenu*>(menu);
        QVERIFY(open && open->isVisible());
        auto* const action = window().findChild<QAction*>(QLatin1String(name));
        QTest::mouseClick(open, Qt::LeftButton, {}, open->actionGeometry(action).center());
    }

    /// The ids of the plans in the table.
    QStringList listed() const
    {
        QStringList ids;
        for (int row = 0; row < table()->model()->rowCount(); ++row)
            ids << table()->model()->index(row, PlanColumns::Id).data().toString();
        return ids;
    }

    /// Opens the menu of plans and clicks an entry.
    void act(const char* name) const
    {
        QMenuBar* const bar = window().menuBar();
        QAction* const plans = bar->actions().constFirst();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(plans).center());
        clickOn(plans->menu(), name);
    }

    /// Does something while writing is not possible.
    void whileAnotherClientWrites(const std::function<void()>& action) const
    {
        Database file;
        QCOMPARE(file.open(session().ownersFile()), Status());
        QCOMPARE(file.transaction([&action]() -> Status {
            action();
            return {};
        }),
            Status());
    }

    qint64 holdings() const
    {
        const QString symbol = SampleSession::record().value(Kelvo_Fields::Security::symbol).toString();
        return PositionStore(ClientSession::instance().database())
            .held(QStringLiteral("100001"))
            .valueOr({})
            .value(symbol);
    }

    static int issued()
    {
        Database& database = ClientSession::instance().database();
        return database.value(QStringLiteral("SELECT count(*) FROM instructions"))->toInt();
    }

    static StoredPlan stored(const QString& plan)
    {
        return ClientSession::instance().plans().plan(plan).valueOr(StoredPlan());
    }
};

QTEST_MAIN(DeskTest)
#include "tst_desk.moc"
