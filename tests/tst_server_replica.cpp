// A replica of the server, which follows it and only reads.
#include "ClientSession.h"
#include "ErrorText.h"
#include "FaultServer.h"
#include "ProgramRun.h"
#include "Psql.h"
#include "SessionTest.h"

#include <QtTest>

namespace {

constexpr int Patience = 60000 * TEST_TIMEOUT_SCALE; // until the replica has what the server has
const QString Administrator = QStringLiteral("postgres");

ProgramEnd administer(const QStringList& arguments, const QString& location)
{
    return runProgram(QStringLiteral(PLANDESK_PROGRAM),
        QStringList{ QStringLiteral("admin") } + arguments + QStringList{ QStringLiteral("--database"), location });
}

} // namespace

class ServerReplicaTest : public SessionTest {
    Q_OBJECT

private:
    /// Creates a plan on the server and waits until the replica has it. From now on, locations lead to the replica.
    void prepare() override
    {
        SessionTest::prepare();
        QVERIFY(!session().create(SampleSession::record()).isEmpty());
        session().leadThrough(FaultServer::startReplica());
        QTRY_COMPARE_WITH_TIMEOUT(psql(session().file(Administrator), QStringLiteral("SELECT count(*) FROM plans")),
            QStringLiteral("1"), Patience);
    }

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("TEST_DATABASE", "server");
        FaultServer::start();
    }

    void cleanupTestCase()
    {
        FaultServer::stop(QStringLiteral("fast"));
        FaultServer::start();
    }

    void theAdministratorListsTheRights()
    {
        const ProgramEnd expected = administer({ QStringLiteral("list") }, session().ownersFile());
        QCOMPARE(expected.code, 0);
        QVERIFY(expected.output.contains(QStringLiteral("账户100001")));
        const ProgramEnd listed = administer({ QStringLiteral("list") }, session().file(Administrator));
        QVERIFY2(listed.code == 0, qPrintable(listed.errors));
        QCOMPARE(listed.output, expected.output);
        const ProgramEnd changed =
            administer({ QStringLiteral("set-cash"), QStringLiteral("100001"), QStringLiteral("1") },
                session().file(Administrator));
        QCOMPARE(changed.code, 1);
        QVERIFY2(changed.errors.endsWith(QStringLiteral("plandesk: %1\n").arg(errorText(Error::ServerReadOnly))),
            qPrintable(changed.errors));
    }

    void aClientReadsAndStoresNothing()
    {
        QCOMPARE(session().reopen(), Status());
        QCOMPARE(*ClientSession::instance().plans().count(), 1);
        QCOMPARE(session().create(SampleSession::record()), QString());
        QCOMPARE(session().reason(), errorText(Error::ServerReadOnly));
        QCOMPARE(*ClientSession::instance().plans().count(), 1);
    }
};

QTEST_GUILESS_MAIN(ServerReplicaTest)
#include "tst_server_replica.moc"
