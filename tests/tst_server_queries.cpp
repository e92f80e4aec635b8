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

    // It is stored by one message, which also notifies.
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
        PGconn* const other = PQconnectdb(session().ownersFile().toUtf8().constData());
        PQclear(PQexec(other, "SET plandesk.notifies = 'after commit'"));
        QCOMPARE(PQsendQuery(other,
                     "BEGIN; UPDATE plandesk.plans SET version = version + 1; COMMIT;"
                     " SELECT plandesk.notify_of_changes()"),
            1);
        PQfinish(other);
        QVERIFY(changed.wait());
    }

private:
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
