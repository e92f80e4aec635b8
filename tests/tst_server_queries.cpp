// How many statements the client sends to the server for what a trader does, because each one is a round trip.
#include "ClientWindowTest.h"
#include "PlanEvents.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTableView>
#include <QThread>
#include <QtTest>

#include <dlfcn.h>
#include <libpq-fe.h>

namespace {

const QRegularExpression BeginOrCommit(QStringLiteral("^(BEGIN [A-Z ]+$|COMMIT;)"));

/// The statements that were executed since it was cleared.
QStringList sent;
/// The signs of life that were asked for, and the answers that were taken.
int pings = 0;
int answers = 0;

} // namespace

/// Replaces libpq's function for this program: the window's thread notes the statement. A statement is prepared once
/// and counts when it is executed.
int PQsendQuery(PGconn* connection, const char* statement)
{
    static const auto real = reinterpret_cast<decltype(&PQsendQuery)>(dlsym(RTLD_NEXT, "PQsendQuery"));
    const QString text = QString::fromUtf8(statement);
    const bool isPing = text == QLatin1String("SELECT 1");
    pings += isPing ? 1 : 0;
    if (qApp && QThread::currentThread() == qApp->thread() && !isPing && !text.startsWith(QLatin1String("PREPARE ")))
        sent << text;
    return real(connection, statement);
}

/// Notes the statement as well.
int PQsendQueryPrepared(PGconn* connection, const char* statement, int count, const char* const* values,
    const int* lengths, const int* formats, int resultFormat)
{
    static const auto real = reinterpret_cast<decltype(&PQsendQueryPrepared)>(dlsym(RTLD_NEXT, "PQsendQueryPrepared"));
    sent << QString::fromUtf8(statement);
    return real(connection, statement, count, values, lengths, formats, resultFormat);
}

/// Counts the answers that were taken to their end.
PGresult* PQgetResult(PGconn* connection)
{
    static const auto real = reinterpret_cast<decltype(&PQgetResult)>(dlsym(RTLD_NEXT, "PQgetResult"));
    PGresult* const result = real(connection);
    answers += result ? 0 : 1;
    return result;
}

class ServerQueriesTest : public ClientWindowTest {
    Q_OBJECT

private Q_SLOTS:
    void okOfANewPlan()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        dialogDriver().fill(ordinary());
        checkOk(2);
    }

    // The rights, limits and prices are those of the plan that was stored before.
    void okOfACopy()
    {
        openOnPlan();
        pressForEditor(Qt::Key_D);
        checkOk(1);
        QCOMPARE(sent.size(), 1);
    }

    void okOfAChangedPlan()
    {
        openOnPlan();
        pressForEditor(Qt::Key_E);
        dialogDriver().type("le_targetTotalNum", QStringLiteral("2000"));
        // Usually another thread has read the instructions by now.
        QVERIFY(bool(ClientSession::instance().instructionsOf(window().currentPlan())));
        QCoreApplication::processEvents();
        checkOk(4);
    }

    void openingAPlan_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("edit") << Qt::Key_E;
        QTest::newRow("copy") << Qt::Key_D;
    }

    void openingAPlan()
    {
        QFETCH(const Qt::Key, key);
        openOnPlan();
        // Who has not signed is asked once in a session.
        pressForEditor(Qt::Key_N);
        QVERIFY(press(&dialog(), Qt::Key_Escape));
        sent.clear();
        pressForEditor(key);
        checkSent(4);
    }

    void aPageOfTheTable()
    {
        createSamples(160);
        openWindow();
        auto* const table = window().findChild<QTableView*>(QStringLiteral("planTable"));
        sent.clear();
        QTest::keyClick(table, Qt::Key_End, Qt::ControlModifier);
        QCoreApplication::processEvents();
        // The page with its progress, and the instructions and the history of the current plan.
        checkSent(4);
    }

    void theTableReadAgain()
    {
        createSamples(60);
        openWindow();
        sent.clear();
        QVERIFY(press(&window(), Qt::Key_F5));
        checkSent(4);
    }

    void aChangeIsNoticedBeforeTheNextPing()
    {
        openOnPlan();
        Database other;
        QCOMPARE(other.open(session().ownersFile()), Status());
        QSignalSpy changed(&PlanEvents::instance(), &PlanEvents::plansChanged);
        const int former = pings;
        QTRY_VERIFY(pings > former);
        const int answered = answers;
        QTRY_VERIFY(answers > answered);
        const int before = pings;
        QCOMPARE(other.execute(QStringLiteral("UPDATE plans SET version = version + 1")), Status());
        QVERIFY(changed.wait());
        QCOMPARE(pings, before);
    }

    // It is stored in one round trip, which also notifies.
    void aNewPlanOfAnotherClientIsNoticed()
    {
        openOnPlan();
        Database other;
        QCOMPARE(other.open(session().file()), Status());
        QSignalSpy changed(&PlanEvents::instance(), &PlanEvents::plansChanged);
        const Change now{ QStringLiteral("trader01"), QDateTime::currentDateTime() };
        QCOMPARE(PlanStore(other).create(SampleSession::record(), now).status(), Status());
        QVERIFY(changed.wait());
    }

    void aChangeIsNoticedAlthoughItsClientEnds()
    {
        openOnPlan();
        QSignalSpy changed(&PlanEvents::instance(), &PlanEvents::plansChanged);
        QCOMPARE(PQsendQuery(newConnection().get(), ChangeAndNotice), 1);
        QVERIFY(changed.wait());
    }

    // While one notice waits, it stands for those that come meanwhile.
    void aNoticeThatWaitsIsThatOfOthersToo()
    {
        openOnPlan();
        QSignalSpy changed(&PlanEvents::instance(), &PlanEvents::plansChanged);
        const Connection holder = newConnection();
        QVERIFY(run(holder, "SELECT pg_advisory_lock(20715)"));
        const Connection waiting = newConnection();
        QCOMPARE(PQsendQuery(waiting.get(), ChangeAndNotice), 1);
        QTRY_VERIFY(run(holder,
            "SELECT 1 / count(*) FROM pg_locks JOIN pg_database ON database = pg_database.oid"
            " WHERE datname = current_database() AND objid = 20715 AND NOT granted"));
        const Connection later = newConnection();
        QVERIFY(run(later, ChangeAndNotice));
        QVERIFY(!changed.wait(200));
        QVERIFY(run(holder, "SELECT pg_advisory_unlock(20715)"));
        QVERIFY(changed.wait());
        // Nothing is left locked.
        QVERIFY(run(holder, "SET lock_timeout = 1000; SELECT pg_advisory_lock(20714)"));
    }

private:
    using Connection = std::unique_ptr<PGconn, void (*)(PGconn*)>;

    static constexpr const char* ChangeAndNotice =
        "BEGIN; UPDATE plandesk.plans SET version = version + 1; COMMIT; SELECT plandesk.notify_of_changes()";

    Connection newConnection()
    {
        Connection connection(PQconnectdb(session().ownersFile().toUtf8().constData()), PQfinish);
        run(connection, "SET plandesk.notifies = 'after commit'");
        return connection;
    }

    /// Whether all statements could be run.
    static bool run(const Connection& connection, const char* statements)
    {
        PGresult* const result = PQexec(connection.get(), statements);
        const bool isDone = PQresultStatus(result) == PGRES_COMMAND_OK || PQresultStatus(result) == PGRES_TUPLES_OK;
        PQclear(result);
        return isDone;
    }

    void openOnPlan()
    {
        createSamples(1);
        openWindow();
    }

    /// Presses OK. Until the plan is stored, `expected` statements are sent within a transaction.
    void checkOk(int expected)
    {
        QStringList untilStored;
        const auto connection =
            connect(&PlanEvents::instance(), &PlanEvents::planStored, this, [&untilStored] { untilStored = sent; });
        sent.clear();
        QVERIFY(!send().isEmpty());
        disconnect(connection);
        sent = untilStored;
        checkSent(expected);
    }

    static void checkSent(int expected)
    {
        int statements = 0;
        for (const QString& statement : qAsConst(sent))
            statements += BeginOrCommit.match(statement).hasMatch() ? 0 : 1;
        QVERIFY2(statements == expected, qPrintable(sent.join(QLatin1Char('\n'))));
    }
};

QTEST_MAIN(ServerQueriesTest)
#include "tst_server_queries.moc"
