// The client's window while the connection to its server is lost and comes back.
#include "AgreementDC.h"
#include "Alerts.h"
#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "ClientClock.h"
#include "ClientWindowTest.h"
#include "ErrorText.h"
#include "HistoryStore.h"
#include "ImportRun.h"
#include "InstructionIssuer.h"
#include "IssueSheet.h"
#include "Orlo_Values.h"
#include "PlanEvents.h"
#include "PlanSubmission.h"
#include "PlanTable.h"
#include "Signatures.h"
#include "StateActions.h"
#include "TcpProxy.h"
#include "TestStatus.h"

#include <QAbstractButton>
#include <QAction>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QSemaphore>
#include <QTableView>
#include <QThread>
#include <QtTest>

namespace BaseField = AutoPlanField::BaseField;

namespace {

const QDateTime ChangeTime = QDateTime::fromString(QStringLiteral("2024-05-06T10:30:00.000Z"), Qt::ISODateWithMs);
const QString Reconnecting = QStringLiteral("与服务器的连接已断开，正在重新连接……");
const QByteArray Commit("COMMIT;"); // unlike READ COMMITTED
constexpr int ThreeSeconds = 3000 * TEST_TIMEOUT_SCALE;
constexpr int LongestCall = 5000 * TEST_TIMEOUT_SCALE;
constexpr int AtOnce = 100 * TEST_TIMEOUT_SCALE;

} // namespace

class ConnectionTest : public ClientWindowTest {
    Q_OBJECT

protected:
    void prepare() override
    {
        m_proxy = std::make_unique<TcpProxy>(TestDatabase::serverPort());
        ClientWindowTest::prepare();
        session().leadThrough(m_proxy->port());
        QCOMPARE(session().reopen(), Status());
        m_record = SampleSession::record();
    }

    void tidyUp() override
    {
        m_server.close();
        m_proxy->resume();
        ClientWindowTest::tidyUp();
        m_proxy.reset();
    }

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("TEST_DATABASE", "server");
        QVERIFY(TestDatabase::isOnServer());
    }

    void anIdleWindowSaysThatTheConnectionIsLost_data()
    {
        QTest::addColumn<bool>("isStalled");
        QTest::newRow("closed") << false;
        QTest::newRow("stalled") << true;
    }

    void anIdleWindowSaysThatTheConnectionIsLost()
    {
        QFETCH(bool, isStalled);
        openWindow();
        QVERIFY(!line()->isVisible());
        createOnServer();
        QTRY_COMPARE_WITH_TIMEOUT(table().planCount(), 1, Patience);
        lose(isStalled);
        QTRY_VERIFY_WITH_TIMEOUT(line()->isVisible(), ThreeSeconds);
        QCOMPARE(line()->text(), Reconnecting);
        QCOMPARE(table().planCount(), 1);
        createOnServer();
        m_proxy->resume();
        QTRY_VERIFY_WITH_TIMEOUT(!line()->isVisible(), Patience);
        QCOMPARE(doneText(), QStringLiteral("连接已恢复"));
        QCOMPARE(table().planCount(), 2);
        // Changes are noticed again.
        createOnServer();
        QTRY_COMPARE_WITH_TIMEOUT(table().planCount(), 3, Patience);
        QCOMPARE(boxes().take().size(), 0);
    }

    // The driver sends statements of its own before there is a connection to use.
    void anOpeningThatStallsEndsInTime_data()
    {
        QTest::addColumn<QByteArray>("from");
        QTest::newRow("first statement of the driver") << QByteArray("DATESTYLE");
        QTest::newRow("last statement of the driver") << QByteArray("bytea_output");
        QTest::newRow("first statement of the client") << QByteArray("session_user");
    }

    void anOpeningThatStallsEndsInTime()
    {
        QFETCH(const QByteArray, from);
        log().allowLostConnection();
        m_proxy->swallow(from);
        QElapsedTimer passed;
        passed.start();
        Database other;
        QVERIFY(!other.open(session().file()));
        QVERIFY2(passed.elapsed() < LongestCall, qPrintable(QString::number(passed.elapsed())));
        QVERIFY(m_proxy->hasSwallowed());
    }

    void aCallOnAStalledConnectionEndsInTime()
    {
        openWindow();
        const auto& record = m_record;
        lose(true);
        QElapsedTimer passed;
        passed.start();
        QCOMPARE(AutoPlanLogic::instance().CreateNewPlan(record), errorText(Error::ConnectionLost));
        QVERIFY2(passed.elapsed() < LongestCall, qPrintable(QString::number(passed.elapsed())));
        QTRY_VERIFY_WITH_TIMEOUT(line()->isVisible(), qMax(0, ThreeSeconds - static_cast<int>(passed.elapsed())));
        // Later calls do not wait.
        passed.start();
        QCOMPARE(AutoPlanLogic::instance().CreateNewPlan(record), errorText(Error::ConnectionLost));
        QVERIFY2(passed.elapsed() < AtOnce, qPrintable(QString::number(passed.elapsed())));
        m_proxy->resume();
        QTRY_VERIFY_WITH_TIMEOUT(!line()->isVisible(), Patience);
        QCOMPARE(AutoPlanLogic::instance().CreateNewPlan(record), QString());
        QCOMPARE(*plans().count(), 1);
    }

    void anOpenFormIsKeptAndSentWhenTheServerIsBack()
    {
        const QString plan = createOnServer();
        openWindow();
        pressForEditor(Qt::Key_E);
        dialogDriver().type("le_targetTotalNum", QStringLiteral("3000"));
        lose(false);
        QTRY_VERIFY_WITH_TIMEOUT(line()->isVisible(), ThreeSeconds);
        QCOMPARE(send("msgBoxError"),
            QStringLiteral("交易计划%1修改失败，失败原因：%2").arg(plan, errorText(Error::ConnectionLost)));
        QVERIFY(dialog().isVisible());
        m_proxy->resume();
        QTRY_VERIFY_WITH_TIMEOUT(!line()->isVisible(), Patience);
        QCOMPARE(totalOfForm(), QStringLiteral("3,000"));
        QCOMPARE(send(), QStringLiteral("交易计划%1修改成功!").arg(plan));
        QCOMPARE(plans().plan(plan)->version, 2);
    }

    void whatCannotBeReadAheadOpensNoBox()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        log().expectWarning(errorText(Error::NoConnection));
        PlanEvents::instance().report({ Error::CannotOpenDatabase, { QStringLiteral("x") }, Error::NoConnection });
        QCoreApplication::processEvents();
        QCOMPARE(boxes().take().size(), 0);
    }

    void aCommitWithoutAnAnswerIsLookedUp()
    {
        const auto& record = m_record;
        m_proxy->swallowAnswersTo(Commit);
        QElapsedTimer passed;
        passed.start();
        QCOMPARE(AutoPlanLogic::instance().CreateNewPlan(record), QString());
        QVERIFY2(passed.elapsed() < LongestCall, qPrintable(QString::number(passed.elapsed())));
        QVERIFY(m_proxy->hasSwallowed());
        QCOMPARE(countOnServer(), 1);
    }

    void aDayWithoutAnAnswerIsLookedUp()
    {
        createOnServer();
        m_proxy->swallowAnswersTo(Commit);
        const auto result = InstructionIssuer::issueDay(SampleSession::today());
        QCOMPARE(result.status(), Status());
        QCOMPARE(result->issued.size(), 1);
        QVERIFY(m_proxy->hasSwallowed());
    }

    void aNewPlanWhoseOutcomeWasUnknownIsReportedLater_data() { addFates(); }

    void aNewPlanWhoseOutcomeWasUnknownIsReportedLater()
    {
        QFETCH(bool, isStored);
        openWindow();
        pressForEditor(Qt::Key_N);
        FormDriver driver = dialogDriver();
        driver.fill(ordinary());
        QCOMPARE(driver.takeProblems(), QStringList());
        const QString total = totalOfForm();
        sendWithoutAnswer();
        if (isStored) {
            QCOMPARE(outcomeLater(), QStringLiteral("连接中断前提交的计划%1已保存。").arg(newestOnServer()));
            QVERIFY(!dialog().isVisible());
            QCOMPARE(window().currentPlan(), newestOnServer());
        } else {
            QCOMPARE(outcomeLater(), QStringLiteral("连接中断前提交的计划未保存，请重新提交。"));
            QVERIFY(dialog().isVisible());
            QCOMPARE(countOnServer(), 0);
            QCOMPARE(totalOfForm(), total);
            QCOMPARE(send(), QStringLiteral("交易自动规划创建成功!"));
        }
        QCOMPARE(countOnServer(), 1);
    }

    void aChangedPlanWhoseOutcomeWasUnknownIsReportedLater_data() { addFates(); }

    void aChangedPlanWhoseOutcomeWasUnknownIsReportedLater()
    {
        QFETCH(bool, isStored);
        const QString plan = createOnServer();
        openWindow();
        editTotal(QStringLiteral("3000"));
        sendWithoutAnswer();
        if (isStored) {
            QCOMPARE(outcomeLater(), QStringLiteral("连接中断前提交的计划%1已保存。").arg(plan));
            QVERIFY(!dialog().isVisible());
            QCOMPARE(window().currentPlan(), plan);
            QCOMPARE(totalOnServer(plan), QStringLiteral("3000"));
            // The next change is made from the stored version.
            QCOMPARE(ClientSession::instance().versions().of(plan), 2);
            editTotal(QStringLiteral("4000"));
            QCOMPARE(send(), QStringLiteral("交易计划%1修改成功!").arg(plan));
            QCOMPARE(plans().plan(plan)->version, 3);
        } else {
            QCOMPARE(outcomeLater(), QStringLiteral("连接中断前提交的计划未保存，请重新提交。"));
            QVERIFY(dialog().isVisible());
            QCOMPARE(totalOnServer(plan), QStringLiteral("1000"));
            QCOMPARE(totalOfForm(), QStringLiteral("3,000"));
            QCOMPARE(send(), QStringLiteral("交易计划%1修改成功!").arg(plan));
            QCOMPARE(plans().plan(plan)->version, 2);
        }
    }

    void aFormThatWasChangedSinceItWasSentStaysOpen_data()
    {
        QTest::addColumn<bool>("isStored");
        QTest::newRow("stored") << true;
    }

    void aFormThatWasChangedSinceItWasSentStaysOpen()
    {
        const QString plan = createOnServer();
        openWindow();
        editTotal(QStringLiteral("3000"));
        sendWithoutAnswer();
        dialogDriver().type("le_targetTotalNum", QStringLiteral("4000"));
        QCOMPARE(outcomeLater(), QStringLiteral("连接中断前提交的计划%1已保存。").arg(plan));
        QVERIFY(dialog().isVisible());
        QCOMPARE(totalOfForm(), QStringLiteral("4,000"));
        // Its values do not get into the next form.
        dialog().leave();
        pressForEditor(Qt::Key_N);
        QVERIFY(totalOfForm() != QStringLiteral("4,000"));
    }

    // The sheet issues on a connection of its own, so the window's can look the day up.
    void aDayWhoseCommitWasNotAnsweredIsLookedUp_data() { addFates(); }

    void aDayWhoseCommitWasNotAnsweredIsLookedUp()
    {
        QFETCH(bool, isStored);
        const QString plan = createOnServer();
        openWindow();
        openSheet();
        loseCommit();
        QVERIFY(!boxOf([this] { issue(); }, "msgBoxQuestion").isEmpty());
        QTRY_VERIFY_WITH_TIMEOUT(!isIssuing(), Patience);
        QVERIFY(m_proxy->hasSwallowed());
        QCOMPARE(sheet()->findChild<QLabel*>(QStringLiteral("issueText"))->text(),
            isStored ? QStringLiteral("已下达1条，此前已下达0个，未下达0个。")
                     : QStringLiteral("已下达0条，此前已下达0个，未下达0个。其余因故未下达：")
                    + errorText(Error::ConnectionLost));
        QCOMPARE(InstructionStore(server()).ofPlan(plan)->size(), isStored ? 1 : 0);
        m_proxy->resume();
        openSheet();
        if (!isStored)
            QVERIFY(!boxOf([this] { issue(); }, "msgBoxQuestion").isEmpty());
        QTRY_VERIFY_WITH_TIMEOUT(!isIssuing(), Patience);
        QCOMPARE(InstructionStore(server()).ofPlan(plan)->size(), 1);
    }

    void aStateWhoseCommitWasNotAnsweredIsLookedUp_data() { addFates(); }

    void aStateWhoseCommitWasNotAnsweredIsLookedUp()
    {
        QFETCH(bool, isStored);
        const QString plan = createOnServer();
        openWindow();
        setState("action_archive", QStringLiteral("0个计划已归档"), "msgBoxWarning");
        loseCommit();
        const QString refusal = setState("action_pause",
            isStored ? QStringLiteral("1个计划已暂停") : QStringLiteral("0个计划已暂停"), "msgBoxError");
        QCOMPARE(refusal, isStored ? QString() : errorText(Error::ConnectionLost));
        QVERIFY(m_proxy->hasSwallowed());
        QCOMPARE(stateOnServer(plan), isStored ? PlanState::Paused : PlanState::Active);
    }

    void aStateWhoseOutcomeWasUnknownIsReportedLater_data() { addFates(); }

    void aStateWhoseOutcomeWasUnknownIsReportedLater()
    {
        QFETCH(bool, isStored);
        const QString plan = createOnServer();
        openWindow();
        setState("action_archive", QStringLiteral("0个计划已归档"), "msgBoxWarning");
        loseCommit();
        QSignalSpy done(window().findChild<StateActions*>(), &StateActions::finished);
        const auto pauseAndLose = [this, &done] {
            field<QAction>(window(), "action_pause")->trigger();
            QTRY_VERIFY_WITH_TIMEOUT(m_proxy->hasSwallowed(), Patience);
            m_proxy->cut();
            QTRY_COMPARE_WITH_TIMEOUT(done.size(), 1, Patience);
            QCOMPARE(done.constFirst().constFirst().toString(), QStringLiteral("0个计划已暂停"));
            QCOMPARE(doneText(), QStringLiteral("0个计划已暂停"));
        };
        QCOMPARE(boxOf(pauseAndLose, "msgBoxError"), errorText({ Error::OutcomeUnknown, {}, Error::ConnectionLost }));
        QCOMPARE(outcomeLater(),
            isStored ? QStringLiteral("连接中断前变更的计划状态已保存。")
                     : QStringLiteral("连接中断前变更的计划状态未保存，请重新变更。"));
        QCOMPARE(stateOnServer(plan), isStored ? PlanState::Paused : PlanState::Active);
    }

    void anAlertWhoseCommitWasNotAnsweredIsWorkedOffAgain_data() { addFates(); }

    void anAlertWhoseCommitWasNotAnsweredIsWorkedOffAgain()
    {
        createSamples(1);
        setClientToday(SampleSession::today().addDays(1));
        openWindow();
        QVERIFY(press(&window(), Qt::Key_L, Qt::ControlModifier));
        const auto* const alerts = window().findChild<Alerts*>();
        const auto* const rows = alerts->findChild<QTableView*>()->model();
        const auto* const said = field<QLabel>(*alerts, "alertText");
        auto* const done = field<QAbstractButton>(*alerts, "btn_done");
        QTRY_COMPARE_WITH_TIMEOUT(rows->rowCount(), 1, Patience);
        loseCommit();
        QTest::mouseClick(done, Qt::LeftButton);
        QCOMPARE(said->text(), errorText({ Error::OutcomeUnknown, {}, Error::ConnectionLost }));
        QVERIFY(m_proxy->hasSwallowed());
        m_proxy->resume();
        QFETCH(bool, isStored);
        // What is stored is read when the connection is back.
        QTRY_COMPARE_WITH_TIMEOUT(
            said->text(), isStored ? QStringLiteral("没有提醒。") : QStringLiteral("1条提醒"), Patience);
        if (!isStored)
            QTest::mouseClick(done, Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(rows->rowCount(), 0, Patience);
    }

    void anImportWhoseCommitWasNotAnsweredIsHarmlessAgain_data()
    {
        QTest::addColumn<bool>("isStored");
        QTest::addColumn<bool>("isPlan");
        QTest::newRow("plans, stored") << true << true;
        QTest::newRow("plans, not stored") << false << true;
        QTest::newRow("securities, stored") << true << false;
        QTest::newRow("securities, not stored") << false << false;
    }

    void anImportWhoseCommitWasNotAnsweredIsHarmlessAgain()
    {
        QFETCH(bool, isStored);
        QFETCH(bool, isPlan);
        ImportTask task;
        task.file = QStringLiteral("a.csv");
        if (isPlan) {
            task.kind = QStringLiteral("plans");
            task.location = session().file();
            task.templatePlan = createOnServer();
            task.scene.emplace(InstructionIssuer::scene(SampleSession::today()));
            task.contents = QStringLiteral("代码,数量\n%1,500\n").arg(share()).toUtf8();
        } else {
            task.kind = QStringLiteral("securities");
            task.location = session().ownersFile().replace(
                QStringLiteral(":%1/").arg(TestDatabase::serverPort()), QStringLiteral(":%1/").arg(m_proxy->port()));
            task.contents = QStringLiteral("symbol,name,type,sub-type,decimals,factor,step,limit\n"
                                           "600999.SH,新股,股票,主板,2,1,100,10%\n")
                                .toUtf8();
        }
        const QString number =
            QStringLiteral("SELECT count(*) FROM ") + (isPlan ? QStringLiteral("plans") : QStringLiteral("securities"));
        const auto count = [&] { return server().value(number)->toInt(); };
        const int before = count();
        log().allowLostConnection();
        if (isStored)
            m_proxy->swallowAnswersTo(Commit);
        else
            m_proxy->swallow(Commit);
        ImportReport report;
        Status status;
        const std::unique_ptr<QThread> import(QThread::create([&] { status = ImportRun::run(task, report); }));
        import->start();
        QTRY_VERIFY_WITH_TIMEOUT(m_proxy->hasSwallowed(), Patience);
        m_proxy->cut();
        import->wait();
        QCOMPARE(status, Status(Error::OutcomeUnknown, {}, Error::ConnectionLost));
        QTRY_COMPARE_WITH_TIMEOUT(count(), before + (isStored ? 1 : 0), Patience);
        m_proxy->resume();
        QCOMPARE(ImportRun::run(task, report), Status());
        QCOMPARE(report.added, isStored ? qint64(0) : qint64(1));
        QCOMPARE(count(), before + 1);
    }

    void aSignatureWhoseOutcomeWasUnknownIsReportedLater_data() { addFates(); }

    void aSignatureWhoseOutcomeWasUnknownIsReportedLater()
    {
        QFETCH(bool, isStored);
        QCOMPARE(session().reopen(QStringLiteral("trader07")), Status());
        openWindow();
        const QString agreement = Orlo_Values::ProtocolId::AutoPlanReduceAgree;
        const auto unsignedClients = [&] { return AgreementDC::instance().GetUnsignedClientNoList(agreement); };
        const QStringList before = unsignedClients();
        QVERIFY(!before.isEmpty());
        loseCommit();
        QCOMPARE(signAgreement(agreement, before), Status(Error::OutcomeUnknown, {}, Error::ConnectionLost));
        QVERIFY(m_proxy->hasSwallowed());
        QCOMPARE(outcomeLater(),
            isStored ? QStringLiteral("连接中断前签署的协议已保存。")
                     : QStringLiteral("连接中断前签署的协议未保存，请重新签署。"));
        QCOMPARE(unsignedClients(), isStored ? QStringList() : before);
        QCOMPARE(signAgreement(agreement, before), Status());
        QCOMPARE(unsignedClients(), QStringList());
    }

    void theAveragesConnectAgain()
    {
        openWindow();
        QStringList failures;
        connect(&AutoPlanLogic::instance(), &AutoPlanLogic::signalQuerySymbolMAResponse, &window(),
            [&failures](const QString&, const QStringList&, const QString& failure) { failures << failure; });
        ClientSession::instance().askMovingAverages(share());
        QTRY_COMPARE_WITH_TIMEOUT(failures.size(), 1, Patience);
        lose(false);
        QTRY_VERIFY_WITH_TIMEOUT(line()->isVisible(), ThreeSeconds);
        m_proxy->resume();
        QTRY_VERIFY_WITH_TIMEOUT(!line()->isVisible(), Patience);
        ClientSession::instance().askMovingAverages(share());
        QTRY_COMPARE_WITH_TIMEOUT(failures.size(), 2, Patience);
        QCOMPARE(failures, (QStringList{ QString(), QString() }));
    }

    // The server does not notice that the connection is lost.
    void theFormerProcessOfALostConnectionIsEnded()
    {
        openWindow();
        const QString former = ClientSession::instance().database().process();
        QVERIFY(isRunning(former));
        log().allowLostConnection();
        // The line may go again before the next look at it.
        bool wasShown = false;
        connect(
            &PlanEvents::instance(), &PlanEvents::connectionLost, &window(), [&] { wasShown = line()->isVisible(); });
        m_proxy->hold();
        QTRY_VERIFY_WITH_TIMEOUT(wasShown, ThreeSeconds);
        QTRY_VERIFY_WITH_TIMEOUT(!line()->isVisible(), Patience);
        QVERIFY(ClientSession::instance().database().process() != former);
        QVERIFY(!isRunning(former));
    }

    void closingTheWindowDoesNotWaitForTheServer()
    {
        openWindow();
        lose(true);
        QTRY_VERIFY_WITH_TIMEOUT(line()->isVisible(), ThreeSeconds);
        QElapsedTimer passed;
        passed.start();
        closeWindow();
        ClientSession::instance().close();
        QVERIFY2(passed.elapsed() < LongestCall, qPrintable(QString::number(passed.elapsed())));
    }

    void theSameRequestAtOnceIsStoredOnce()
    {
        const QString request = QStringLiteral("request");
        QSemaphore isStored;
        QString stored;
        const std::unique_ptr<QThread> other(QThread::create([&] {
            Database database;
            Status status = database.open(session().ownersFile());
            if (status)
                status = database.transaction([&] {
                    const auto created =
                        PlanStore(database).create(m_record, { QStringLiteral("trader01"), ChangeTime, request });
                    stored = created.valueOr(QString());
                    isStored.release();
                    return waitForAnotherClient(database);
                });
            if (!status)
                stored = errorText(status);
        }));
        other->start();
        isStored.acquire();
        const auto created = PlanSubmission::create(m_record, request);
        other->wait();
        QCOMPARE(created.status(), Status());
        QCOMPARE(*created, stored);
        QCOMPARE(countOnServer(), 1);
    }

    void whatIsReportedLaterIsTrue()
    {
        openWindow();
        ClientSession& client = ClientSession::instance();
        const QString former = client.database().process();
        const auto& record = m_record;
        log().allowLostConnection();
        const Status status = client.database().transaction([&] {
            const auto created = client.plans().create(record, client.changeNow(QStringLiteral("request")));
            m_proxy->hold();
            m_proxy->refuse();
            return created.status();
        });
        QCOMPARE(status, Status(Error::ConnectionLost));
        QVERIFY(client.database().commitFailed());
        std::optional<qint64> known;
        const auto find = [](Database& database) {
            return HistoryStore(database).planOfRequest(QStringLiteral("request"));
        };
        QCOMPARE(client.lookUp(QStringLiteral("request"), find, [&known](qint64 found) { known = found; }).status(),
            Status(Error::ConnectionLost));
        m_proxy->resume();
        QTRY_VERIFY_WITH_TIMEOUT(known.has_value(), Patience);
        // The COMMIT on its way cannot be executed any more.
        QVERIFY(!isRunning(former));
        QCOMPARE(*known, 0);
        QCOMPARE(countOnServer(), 0);
    }

    void aServerThatIsTooSlowIsAskedAgain()
    {
        openWindow();
        ClientSession& client = ClientSession::instance();
        m_proxy->refuse();
        const Status status = client.database().transaction([&] {
            const auto created = client.plans().create(m_record, client.changeNow(QStringLiteral("request")));
            lose(true);
            return created.status();
        });
        QCOMPARE(status, Status(Error::ConnectionLost));
        int asked = 0;
        const auto find = [&](const Database& database) -> Result<qint64> {
            // The first attempt, with another connection, may still go on.
            if (&database != &client.database())
                return Error::ConnectionLost;
            ++asked;
            return asked == 1 ? Result<qint64>(Error::ServerTooSlow) : 7;
        };
        std::optional<qint64> known;
        QVERIFY(!client.lookUp(QStringLiteral("request"), find, [&known](qint64 found) { known = found; }));
        QCOMPARE(asked, 0);
        m_proxy->resume();
        QTRY_COMPARE_WITH_TIMEOUT(known.value_or(0), 7, Patience);
        QCOMPARE(asked, 2);
    }

private:
    QLabel* line() const { return field<QLabel>(window(), "outdated"); }
    /// What was done last, before the number of plans or why they could not be read.
    QString doneText() const { return text(window(), "status").section(QChar(0xFF0C), 0, 0); }
    PlanTable& table() const { return *field<PlanTable>(window(), "planTable"); }

    void lose(bool isStalled)
    {
        log().allowLostConnection();
        if (isStalled) {
            m_proxy->stall();
            return;
        }
        m_proxy->refuse();
        m_proxy->cut();
    }

    Database& server()
    {
        if (!m_server.isOpen()) {
            const auto open = [this] { QCOMPARE(m_server.open(session().ownersFile()), Status()); };
            open();
        }
        return m_server;
    }

    /// Returns when another client waits for what this transaction has locked.
    static Status waitForAnotherClient(Database& database)
    {
        Result<QVariant> waiting = QVariant(0);
        while (waiting && waiting->toInt() == 0)
            waiting = database.value(QStringLiteral("SELECT count(*) FROM pg_locks WHERE NOT granted"
                                                    " AND transactionid = pg_current_xact_id()::xid"));
        return waiting.status();
    }

    bool isRunning(const QString& process)
    {
        return server()
                   .value(QStringLiteral("SELECT count(*) FROM pg_stat_activity"
                                         " WHERE pid || '/' || extract(epoch FROM backend_start) = ?"),
                       { process })
                   ->toInt()
            != 0;
    }

    QString createOnServer()
    {
        const auto created = PlanStore(server()).create(m_record, { QStringLiteral("trader01"), ChangeTime });
        return created.valueOr(QString());
    }
    int countOnServer() { return PlanStore(server()).count().valueOr(-1); }
    QString newestOnServer() { return PlanStore(server()).page(0, 1)->value(0).id; }
    QString totalOfForm() const
    {
        return field<QWidget>(*dialogEditor(), "le_targetTotalNum")->findChild<QLineEdit*>()->text();
    }

    QString totalOnServer(const QString& plan)
    {
        return PlanStore(server()).plan(plan)->record.value(BaseField::totalQty).toString();
    }

    void editTotal(const QString& total)
    {
        pressForEditor(Qt::Key_E);
        dialogDriver().type("le_targetTotalNum", total);
    }

    /// Whether the server executes a COMMIT whose outcome the client cannot look up.
    static void addFates()
    {
        QTest::addColumn<bool>("isStored");
        QTest::newRow("stored") << true;
        QTest::newRow("not stored") << false;
    }

    PlanState stateOnServer(const QString& plan) { return PlanStore(server()).plan(plan)->state; }

    /// Gives the current plan another state, until the window says what was done. Returns the text of the box.
    QString setState(const char* action, const QString& said, const char* box)
    {
        const auto set = [&] {
            field<QAction>(window(), action)->trigger();
            QTRY_COMPARE_WITH_TIMEOUT(doneText(), said, Patience);
        };
        return boxOf(set, box);
    }

    IssueSheet* sheet() const { return window().findChild<IssueSheet*>(); }
    bool isIssuing() const
    {
        return sheet()->findChild<QAbstractButton*>(QStringLiteral("btn_close"))->text() == QStringLiteral("取消");
    }
    void issue() const
    {
        QTest::mouseClick(sheet()->findChild<QAbstractButton*>(QStringLiteral("btn_issue")), Qt::LeftButton);
    }

    /// Opens the sheet of today's plans, and waits until it has read them.
    void openSheet()
    {
        QVERIFY(press(&window(), Qt::Key_I, Qt::ControlModifier));
        QTRY_VERIFY_WITH_TIMEOUT(!isIssuing(), Patience);
    }

    void loseCommit()
    {
        QFETCH(bool, isStored);
        log().allowLostConnection();
        if (isStored)
            m_proxy->swallowAnswersTo(Commit);
        else
            m_proxy->swallow(Commit);
        m_proxy->refuse();
    }

    /// Sends the open form and loses its COMMIT.
    void sendWithoutAnswer()
    {
        loseCommit();
        QElapsedTimer passed;
        passed.start();
        const QString refusal = send("msgBoxError");
        QVERIFY2(
            refusal.endsWith(errorText({ Error::OutcomeUnknown, {}, Error::ConnectionLost })), qPrintable(refusal));
        QVERIFY2(passed.elapsed() < LongestCall, qPrintable(QString::number(passed.elapsed())));
        QVERIFY(m_proxy->hasSwallowed());
        QVERIFY(dialog().isVisible());
    }

    /// Lets the connection come back, and returns the text of the box that reports the outcome.
    QString outcomeLater()
    {
        QFETCH(bool, isStored);
        int known = 0;
        QObject context;
        connect(&PlanEvents::instance(), &PlanEvents::outcomeKnown, &context, [&known] { ++known; });
        const auto comeBack = [&] {
            m_proxy->resume();
            QTRY_COMPARE_WITH_TIMEOUT(known, 1, Patience);
        };
        return boxOf(comeBack, isStored ? "msgBoxTip" : "msgBoxError");
    }

    std::unique_ptr<TcpProxy> m_proxy;
    PlanStore::Record m_record;
    Database m_server; ///< without the proxy
};

QTEST_MAIN(ConnectionTest)
#include "tst_connection.moc"
