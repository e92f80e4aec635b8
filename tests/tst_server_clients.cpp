#include "ClientSession.h"
#include "Database.h"
#include "ErrorText.h"
#include "InstructionIssuer.h"
#include "PlanCodes.h"
#include "PlanStore.h"
#include "TestStatus.h"
#include "WriterTest.h"

#include <QElapsedTimer>
#include <QSemaphore>
#include <QThread>

namespace {

const Change Now{ QStringLiteral("trader01"), QDateTime(QDate(2024, 5, 6), QTime(12, 0)) };
constexpr int Writers = 8;
constexpr int FiveSeconds = 5000 * TEST_TIMEOUT_SCALE;

/// The other client has changed the common plan since this one read it, or has locked it for too long.
QStringList conflicts()
{
    return { QStringLiteral("本次修改未保存，请核对后重新提交"), errorText(Error::LockedByOthers) };
}

} // namespace

/// Many clients at once on a server's database, some of which are killed.
class ServerClientsTest : public WriterTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qputenv("TEST_DATABASE", "server"); }

    void killedClientsLoseNothingThatWasAcknowledged()
    {
        const int kills = setting("FAULTS_KILLS", 6);
        const quint32 seed = chosenSeed();
        QRandomGenerator random(seed);
        startWriters(Writers, 0);
        for (int i = 0; i < kills; ++i) {
            kill(0, random.bounded(100000));
            startWriters(1, 0);
        }
        QVERIFY(waitForAcknowledged(Writers));
        killWriters();
        checkStored(QStringLiteral("%1 kills while %2 write, seed %3").arg(kills + Writers).arg(Writers).arg(seed));
        checkRefusals(conflicts());
        checkNothingIsLeft();
    }

    void manyClientsAtOnceLoseAndOverwriteNothing()
    {
        const int clients = setting("FAULTS_CLIENTS", 10);
        const int plans = setting("FAULTS_CLIENT_PLANS", 10);
        startWriters(clients, 3 * plans);
        finishWriters();
        checkStored(QStringLiteral("%1 clients with %2 plans each").arg(clients).arg(plans));
        checkCommonPlan();
        // Fifty may be more than the server can do in time.
        checkRefusals(conflicts() + QStringList(errorText(Error::ServerTooSlow)));
        QCOMPARE(ledger().attempted(), 1 + 3 * clients * plans);
        QCOMPARE(ledger().acknowledged() + ledger().refusals().size(), ledger().attempted());
        // Nobody else changes the own plans.
        QVERIFY(ledger().refusals().size() <= clients * plans);
        checkNothingIsLeft();
    }

    void oneOfTwoClientsThatWaitForEachOtherIsRefused()
    {
        QCOMPARE(session().reopen(), Status());
        for (int i = 0; i < 2; ++i)
            QCOMPARE(create(), QString());
        const auto plans = *ClientSession::instance().plans().plans(created());
        QSemaphore reached[2];
        Status results[2];
        std::unique_ptr<QThread> threads[2];
        for (int own = 0; own < 2; ++own) {
            threads[own].reset(QThread::create([&, own] {
                Database database;
                results[own] = database.open(session().ownersFile());
                if (results[own])
                    results[own] =
                        changeBoth(database, plans.at(own), plans.at(1 - own), reached[own], reached[1 - own]);
            }));
            threads[own]->start();
        }
        for (const auto& thread : threads)
            thread->wait();
        QVERIFY(bool(results[0]) != bool(results[1]));
        const int winner = results[0] ? 0 : 1;
        QCOMPARE(results[winner], Status());
        QCOMPARE(results[1 - winner], Status(Error::DatabaseBusy));
        for (const StoredPlan& plan : plans) {
            QCOMPARE(ClientSession::instance().plans().plan(plan.id)->version, 2);
            QCOMPARE(*ClientSession::instance().plans().record(plan.id), plans.at(winner).record);
        }
    }

    void aPlanThatAnotherClientHoldsIsReportedInTime()
    {
        QCOMPARE(session().reopen(), Status());
        QCOMPARE(create(), QString());
        const QString plan = created().constFirst();
        Database other;
        QCOMPARE(other.open(session().ownersFile()), Status());
        QElapsedTimer waiting;
        const Status status = other.transaction([&]() -> Status {
            if (Status locked = PlanStore(other).lockedPlan(plan).status(); !locked)
                return locked;
            waiting.start();
            const QString reason = modify(plan, 2);
            return reason == errorText(Error::LockedByOthers) ? Status() : Error::OutcomeUnknown;
        });
        QCOMPARE(status, Status());
        QVERIFY2(waiting.elapsed() < FiveSeconds, qPrintable(QString::number(waiting.elapsed())));
        QCOMPARE(modify(plan, 2), QString());
        checkStored(QStringLiteral("a plan that another client holds"));
    }

    void twoClientsIssueEachPlanOnce()
    {
        const QStringList days = fillDays();
        int reported = 0;
        int stored = 0;
        int refused = 0;
        for (const QString& day : days) {
            WriterProcess issuers[2];
            startIssuing(issuers, day);
            for (WriterProcess& issuer : issuers) {
                QVERIFY(issuer.finish());
                const QByteArray answer = answerOf(issuer);
                if (answer.startsWith("issued "))
                    reported += answer.mid(7).toInt();
                else
                    QVERIFY2(
                        ++refused && answer.endsWith(errorText(Error::LockedByOthers).toUtf8()), answer.constData());
            }
            stored += issued(day);
            checkIssued(day);
        }
        const int wanted = days.size() * plans();
        reportFaults(QStringLiteral("two clients issue the same days, %1 had to wait too long").arg(refused), wanted,
            reported, stored, wanted - stored);
        QCOMPARE(reported, wanted);
    }

    void aKilledIssuerLeavesNothingHalf()
    {
        const QStringList days = fillDays();
        const int killsOfDay = qMax(1, setting("FAULTS_KILLS", 12) / 12);
        const quint32 seed = chosenSeed();
        QRandomGenerator random(seed);
        int kills = 0;
        int reported = 0;
        int stored = 0;
        for (const QString& day : days) {
            WriterProcess other;
            QVERIFY(other.start(session().file(), { QStringLiteral("issue"), day }));
            for (int i = 0; i < killsOfDay && issued(day) == 0; ++i, ++kills) {
                WriterProcess killed;
                QVERIFY(killed.start(session().file(), { QStringLiteral("issue"), day }));
                killed.closeInput();
                killed.killAfter(random.bounded(3000 * plans()));
                QVERIFY2(issued(day) == 0 || issued(day) == plans(), qPrintable(QString::number(issued(day))));
            }
            QVERIFY(other.finish());
            QVERIFY2(answerOf(other).startsWith("issued "), answerOf(other).constData());
            reported += answerOf(other).mid(7).toInt();
            stored += issued(day);
            checkIssued(day);
        }
        const int wanted = days.size() * plans();
        reportFaults(QStringLiteral("days whose issuer is killed %1 times, seed %2").arg(kills).arg(seed), wanted,
            reported, stored, wanted - stored);
    }

private:
    /// Changes two plans in one transaction, the second one once the other client has changed its first one.
    static Status changeBoth(
        Database& database, const StoredPlan& first, const StoredPlan& second, QSemaphore& own, QSemaphore& others)
    {
        PlanStore plans(database);
        return database.transaction([&]() -> Status {
            const Status status = plans.modify(first.id, 1, first.record, Now);
            own.release();
            if (!status || !others.tryAcquire(1, 10000))
                return status;
            return plans.modify(second.id, 1, first.record, Now);
        });
    }

    /// Makes plans in an open session. Returns the days that are issued.
    QStringList fillDays()
    {
        const int number = setting("FAULTS_ISSUED_PLANS", 20);
        if (const Status opened = session().reopen(); !opened)
            qFatal("%s", qPrintable(errorText(opened)));
        for (int i = 0; i < number; ++i) {
            if (const QString reason = create(); !reason.isEmpty())
                qFatal("%s", qPrintable(reason));
        }
        return { QStringLiteral("2024-05-06"), QStringLiteral("2024-05-07"), QStringLiteral("2024-05-08") };
    }

    int plans() const { return 1 + static_cast<int>(created().size()); }

    void startIssuing(WriterProcess (&issuers)[2], const QString& day)
    {
        for (WriterProcess& issuer : issuers)
            QVERIFY(issuer.start(session().file(), { QStringLiteral("issue"), day }));
        for (WriterProcess& issuer : issuers)
            issuer.closeInput();
    }

    static QByteArray answerOf(WriterProcess& issuer) { return issuer.output().trimmed().split('\n').constLast(); }

    int issued(const QString& day)
    {
        Database database;
        if (const Status opened = database.open(session().ownersFile()); !opened)
            qFatal("%s", qPrintable(errorText(opened)));
        return database.value(QStringLiteral("SELECT count(*) FROM instructions WHERE day = ?"), { day })->toInt();
    }

    /// Whether each plan has exactly one instruction of the day, also in the history.
    void checkIssued(const QString& day)
    {
        Database database;
        QCOMPARE(database.open(session().ownersFile()), Status());
        const auto numbers = database.value(
            QStringLiteral("SELECT concat_ws(' ', count(*), count(DISTINCT plan), (SELECT count(*) FROM history AS h"
                           " WHERE h.event = 'issued' AND h.after ->> '%1' = day)) FROM instructions WHERE day = ?"
                           " GROUP BY day")
                .arg(PlanCodes::FieldId::TradeDate),
            { day });
        QCOMPARE(numbers->toString(), QStringLiteral("%1 %1 %1").arg(plans()));
    }
};

QTEST_GUILESS_MAIN(ServerClientsTest)
#include "tst_server_clients.moc"
