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
const QString TableFiles = QStringLiteral("/base/");
const QString LogFiles = QStringLiteral("/pg_wal/");

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
        for (int i = 0; i < rounds(); ++i) {
            startWriters(Writers, 0);
            waitForAcknowledged(3 * Writers);
            FaultServer::stop(mode);
            finishWriters();
            FaultServer::start();
        }
        checkStored(QStringLiteral("%1 writers, server %2").arg(Writers).arg(QLatin1String(QTest::currentDataTag())));
        checkRefusals(lossReasons());
        checkNothingIsLeft();
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
            waitForAcknowledged(3 * Writers);
            FaultServer::fillDisk(TableFiles);
            waitForRefused(Writers, errorText(Error::DiskFull));
            FaultServer::makeRoom();
        }
        waitForAcknowledged(3 * Writers);
        killWriters();
        checkStored(QStringLiteral("%1 writers, full disk of the server").arg(Writers));
        checkRefusals(QStringList{ errorText(Error::DiskFull) } + lossReasons());
        checkNothingIsLeft();
    }

    void aFullDiskOfTheLogLosesNothingThatWasAcknowledged()
    {
        for (int i = 0; i < rounds(); ++i) {
            startWriters(Writers, 0);
            waitForAcknowledged(3 * Writers);
            FaultServer::fillDisk(LogFiles);
            finishWriters();
            FaultServer::makeRoom();
            FaultServer::stop(QStringLiteral("immediate"));
            FaultServer::start();
        }
        checkStored(QStringLiteral("%1 writers, full disk of the server's log").arg(Writers));
        checkRefusals(lossReasons());
        checkNothingIsLeft();
    }

    void aCutConnectionLosesNothingThatWasAcknowledged()
    {
        TcpProxy proxy(TestDatabase::serverPort());
        session().leadThrough(proxy.port());
        for (int i = 0; i < rounds(); ++i) {
            startWriters(Writers, 0);
            waitForAcknowledged(3 * Writers);
            proxy.cut();
            finishWriters();
        }
        checkStored(QStringLiteral("%1 writers, cut connections").arg(Writers));
        checkRefusals(lossReasons());
        checkNothingIsLeft();
    }

private:
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
