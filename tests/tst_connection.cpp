// The client's window while the connection to its server is lost and comes back.
#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "ClientWindowTest.h"
#include "ErrorText.h"
#include "HistoryStore.h"
#include "InstructionIssuer.h"
#include "PlanEvents.h"
#include "PlanSubmission.h"
#include "PlanTable.h"
#include "TcpProxy.h"
#include "TestStatus.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QSemaphore>
#include <QStatusBar>
#include <QThread>
#include <QtTest>

namespace BaseField = AutoPlanField::BaseField;

namespace {

const QDateTime ChangeTime = QDateTime::fromString(QStringLiteral("2024-05-06T10:30:00.000Z"), Qt::ISODateWithMs);
const QString Reconnecting = QStringLiteral("与服务器的连接已断开，正在重新连接……");
const QByteArray Commit("COMMIT", 7); // with its end, unlike READ COMMITTED
constexpr int ThreeSeconds = 3000;
constexpr int LongestCall = 5000;
constexpr int Patience = 10000; // until the server answers again

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
        QCOMPARE(window().statusBar()->currentMessage().section(QChar(0xFF0C), 0, 0), QStringLiteral("连接已恢复"));
        QCOMPARE(table().planCount(), 2);
        // Changes are noticed again.
        createOnServer();
        QTRY_COMPARE_WITH_TIMEOUT(table().planCount(), 3, Patience);
        QCOMPARE(boxes().take().size(), 0);
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
        QVERIFY2(passed.elapsed() < 100, qPrintable(QString::number(passed.elapsed())));
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
        boxes().expect(QStringLiteral("msgBoxWarning"), true);
        log().expectWarning(errorText(Error::ConnectionLost), 2);
        dialogDriver().confirm();
        const auto seen = boxes().take();
        QCOMPARE(seen.size(), 1);
        QCOMPARE(seen.constFirst().name, QStringLiteral("msgBoxWarning"));
        QVERIFY(dialog().isVisible());
        m_proxy->resume();
        QTRY_VERIFY_WITH_TIMEOUT(!line()->isVisible(), Patience);
        QCOMPARE(totalOfForm(), QStringLiteral("3000"));
        QCOMPARE(send(), QStringLiteral("交易计划%1修改成功!").arg(plan));
        QCOMPARE(plans().plan(plan)->version, 2);
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

    void aStoredFormWhoseOutcomeWasUnknownIsAcknowledgedLater()
    {
        openWindow();
        sendWithoutAnswer();
        boxes().expect(QStringLiteral("msgBoxTip"), true);
        m_proxy->resume();
        QTRY_VERIFY_WITH_TIMEOUT(!dialog().isVisible(), Patience);
        QTRY_COMPARE_WITH_TIMEOUT(window().currentPlan(), newestOnServer(), Patience);
        const auto seen = boxes().take();
        QCOMPARE(seen.size(), 1);
        QCOMPARE(seen.constFirst().text, QStringLiteral("连接中断前提交的计划%1已保存。").arg(newestOnServer()));
        QCOMPARE(countOnServer(), 1);
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

    void theFormerProcessOfALostConnectionIsEnded()
    {
        openWindow();
        Database& database = ClientSession::instance().database();
        const QString former = database.process();
        lose(true);
        QTRY_VERIFY_WITH_TIMEOUT(line()->isVisible(), ThreeSeconds);
        m_proxy->resume();
        QTRY_VERIFY_WITH_TIMEOUT(!line()->isVisible(), Patience);
        QVERIFY(database.process() != former);
        QCOMPARE(database
                     .value(QStringLiteral("SELECT count(*) FROM pg_stat_activity"
                                           " WHERE pid || '/' || extract(epoch FROM backend_start) = ?"),
                         { former })
                     ->toInt(),
            0);
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
        const auto& record = m_record;
        const Status status = client.database().transaction([&] {
            const auto created = client.plans().create(record, client.changeNow(QStringLiteral("request")));
            lose(true);
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
        QCOMPARE(countOnServer(), *known == 0 ? 0 : 1);
    }

private:
    QLabel* line() const { return field<QLabel>(window(), "outdated"); }
    PlanTable& table() const { return *field<PlanTable>(window(), "planTable"); }

    void lose(bool isStalled)
    {
        log().allowWarning(QStringLiteral("QSocketNotifier: Invalid socket"));
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

    /// Sends a new form whose COMMIT is executed and not answered, and whose outcome cannot be looked up.
    void sendWithoutAnswer()
    {
        pressForEditor(Qt::Key_N);
        FormDriver driver = dialogDriver();
        driver.fill(ordinary());
        QCOMPARE(driver.takeProblems(), QStringList());
        log().allowWarning(QStringLiteral("QSocketNotifier: Invalid socket"));
        m_proxy->swallowAnswersTo(Commit);
        m_proxy->refuse();
        QElapsedTimer passed;
        passed.start();
        const QString refusal = send("msgBoxError");
        QVERIFY2(
            refusal.endsWith(errorText({ Error::OutcomeUnknown, {}, Error::ConnectionLost })), qPrintable(refusal));
        QVERIFY2(passed.elapsed() < LongestCall, qPrintable(QString::number(passed.elapsed())));
        QVERIFY(m_proxy->hasSwallowed());
        QVERIFY(dialog().isVisible());
    }

    std::unique_ptr<TcpProxy> m_proxy;
    PlanStore::Record m_record;
    Database m_server; ///< without the proxy
};

QTEST_MAIN(ConnectionTest)
#include "tst_connection.moc"
