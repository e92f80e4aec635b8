#include "ClientSession.h"
#include "Database.h"
#include "ErrorText.h"
#include "FaultServer.h"
#include "InstructionIssuer.h"
#include "TcpProxy.h"
#include "TestStatus.h"
#include "WriterTest.h"

namespace {

constexpr int Writers = 8;
constexpr int FiveSeconds = 5000 * TEST_TIMEOUT_SCALE;
const QString TableFiles = QStringLiteral("/base/");
const QString LogFiles = QStringLiteral("/pg_wal/");

// READ COMMITTED is another one.
const QByteArray Commit("COMMIT;");

/// Reasons why writers are refused whose server goes away; those on the common plan also come without a fault.
QStringList lossReasons()
{
    return { errorText(Error::ConnectionLost), errorText({ Error::OutcomeUnknown, {}, Error::ConnectionLost }),
        QStringLiteral("本次修改未保存，请核对后重新提交"), errorText(Error::LockedByOthers) };
}

} // namespace

/// A server that is killed, is restarted, has a full disk or cannot be reached while clients write. It belongs to this
/// program, see `FaultServer`.
class ServerFaultsTest : public WriterTest {
    Q_OBJECT

private:
    void tidyUp() override
    {
        FaultServer::makeRoom();
        FaultServer::start();
        WriterTest::tidyUp();
    }

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("TEST_DATABASE", "server");
        FaultServer::makeRoom();
        FaultServer::start();
    }

    void aStoppedServerLosesNothingThatWasAcknowledged_data()
    {
        QTest::addColumn<QString>("mode");
        QTest::newRow("killed") << QStringLiteral("immediate");
        QTest::newRow("restarted") << QStringLiteral("fast");
    }

    void aStoppedServerLosesNothingThatWasAcknowledged()
    {
        QFETCH(QString, mode);
        startWriters(Writers, 0);
        for (int i = 0; i < rounds(); ++i) {
            QVERIFY(waitForAcknowledged(3 * Writers));
            FaultServer::stop(mode);
            FaultServer::start();
        }
        checkWritersGoOn(QStringLiteral("server %1").arg(QLatin1String(QTest::currentDataTag())), {});
    }

    void aFullDiskIsReportedAndStoresNothingHalf()
    {
        const int plans = setting("FAULTS_ISSUED_PLANS", 40);
        const QDate today = SampleSession::today();
        QCOMPARE(session().reopen(), Status());
        for (int i = 0; i < plans; ++i)
            QCOMPARE(create(), QString());
        QCOMPARE(InstructionIssuer::issueDay(today).status(), Status());
        FaultServer::fillDisk(TableFiles);
        // The tables still have room for some rows.
        QCOMPARE(InstructionIssuer::issueDay(today.addDays(1)).status(), Status(Error::DiskFull));
        QCOMPARE(instructions(), plans + 1);
        const QString full = errorText(Error::DiskFull);
        QString reason;
        while (reason.isEmpty())
            reason = create();
        QCOMPARE(reason, full);
        int changed = 0;
        while ((reason = modify(created().at(changed), 2)).isEmpty())
            ++changed;
        QCOMPARE(reason, full);
        const int kept = static_cast<int>(created().size());
        QCOMPARE(*ClientSession::instance().plans().count(), 1 + kept);

        FaultServer::makeRoom();
        QCOMPARE(create(), QString());
        QCOMPARE(modify(created().at(changed), 2), QString());
        QCOMPARE(InstructionIssuer::issueDay(today.addDays(1)).status(), Status());
        QCOMPARE(instructions(), plans + 1 + kept + 2);
        checkStored(QStringLiteral("a full disk of the server"));
    }

    void writersGoOnWhenAFullDiskHasRoomAgain()
    {
        startWriters(Writers, 0);
        for (int i = 0; i < rounds(); ++i) {
            QVERIFY(waitForAcknowledged(3 * Writers));
            FaultServer::fillDisk(TableFiles);
            QVERIFY(waitForRefused(Writers, errorText(Error::DiskFull)));
            FaultServer::makeRoom();
        }
        checkWritersGoOn(QStringLiteral("full disk of the server"), { errorText(Error::DiskFull) });
    }

    void aFullDiskOfTheLogLosesNothingThatWasAcknowledged()
    {
        startWriters(Writers, 0);
        for (int i = 0; i < rounds(); ++i) {
            QVERIFY(waitForAcknowledged(3 * Writers));
            FaultServer::fillDisk(LogFiles);
            const bool areRefused = waitUntilEachIsRefused();
            FaultServer::makeRoom();
            QVERIFY(areRefused);
            FaultServer::stop(QStringLiteral("immediate"));
            FaultServer::start();
        }
        checkWritersGoOn(QStringLiteral("full disk of the server's log"), {});
    }

    void aCutConnectionLosesNothingThatWasAcknowledged()
    {
        TcpProxy proxy(TestDatabase::serverPort());
        session().leadThrough(proxy.port());
        startWriters(Writers, 0);
        for (int i = 0; i < rounds(); ++i) {
            QVERIFY(waitForAcknowledged(3 * Writers));
            proxy.cut();
        }
        checkWritersGoOn(QStringLiteral("cut connections"), {});
    }

    void aStalledConnectionIsGivenUpInTime()
    {
        TcpProxy proxy(TestDatabase::serverPort());
        session().leadThrough(proxy.port());
        startWriters(Writers, 0);
        for (int i = 0; i < rounds(); ++i) {
            QVERIFY(waitForAcknowledged(3 * Writers));
            proxy.stall();
            // Each writer is refused and waits for the connection.
            const bool areRefused = waitUntilEachIsRefused();
            proxy.resume();
            QVERIFY(areRefused);
        }
        checkWritersGoOn(QStringLiteral("stalled connections"), {});
    }

    void aCommitWhoseAnswerIsLostIsLookedUp()
    {
        TcpProxy proxy(TestDatabase::serverPort());
        session().leadThrough(proxy.port());
        for (int i = 0; i < rounds(); ++i) {
            QCOMPARE(session().reopen(), Status());
            proxy.swallowAnswersTo(Commit);
            QElapsedTimer waiting;
            waiting.start();
            QCOMPARE(create(), QString());
            QVERIFY(proxy.hasSwallowed());
            QVERIFY2(waiting.elapsed() < FiveSeconds, qPrintable(QString::number(waiting.elapsed())));
        }
        checkStored(QStringLiteral("swallowed answers to COMMIT"));
    }

private:
    /// Whether writers go on after a fault, have lost nothing, and were refused for expected reasons only.
    void checkWritersGoOn(const QString& fault, const QStringList& reasons)
    {
        QVERIFY(waitForAcknowledged(3 * Writers));
        killWriters();
        checkStored(QStringLiteral("%1 writers, %2").arg(Writers).arg(fault));
        checkRefusals(reasons + lossReasons());
        checkNothingIsLeft();
    }

    /// Faults of a test function.
    static int rounds() { return qMax(1, setting("FAULTS_KILLS", 12) / 20); }

    static int instructions()
    {
        const auto number =
            ClientSession::instance().database().value(QStringLiteral("SELECT count(*) FROM instructions"));
        return number ? number->toInt() : -1;
    }
};

QTEST_GUILESS_MAIN(ServerFaultsTest)
#include "tst_server_faults.moc"
