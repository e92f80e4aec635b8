#include "AutoPlanField.h"
#include "ClientSession.h"
#include "Database.h"
#include "FaultCount.h"
#include "LoggedTest.h"
#include "PlanLedger.h"
#include "PlanStore.h"
#include "SampleSession.h"
#include "TestStatus.h"
#include "WriterProcess.h"

#include <QFile>
#include <QRandomGenerator>
#include <QtTest>

namespace {

/// The other writer holds the lock, or has changed the shared plan since this one read it.
bool isOfOtherWriter(const QString& refusal)
{
    return refusal.endsWith(QStringLiteral("数据库正被其他程序或一次导入占用，请稍后再试"))
        || refusal.endsWith(QStringLiteral("本次修改未保存，请核对后重新提交"));
}

} // namespace

/// Other processes on the client's file, which are killed at any moment or write at the same time. Every acknowledged
/// plan is stored, every stored plan was sent, and every record is one that was sent.
class StoreProcessesTest : public LoggedTest {
    Q_OBJECT

private:
    /// A file with the sample market, closed.
    void prepare() override
    {
        m_session = std::make_unique<SampleSession>();
        QCOMPARE(m_session->opened(), Status());
        m_ledger = PlanLedger();
        m_ledger.setBase(SampleSession::record());
        ClientSession::instance().close();
    }
    void tidyUp() override { m_session.reset(); }

private Q_SLOTS:
    void aKilledWriterLosesNothingThatWasAcknowledged()
    {
        const int kills = setting("FAULTS_KILLS", 12);
        const quint32 seed = chosenSeed();
        QRandomGenerator random(seed);
        for (int i = 0; i < kills; ++i) {
            WriterProcess writer;
            QVERIFY(writer.start(m_session->file(), { QStringLiteral("k%1").arg(i), QStringLiteral("0") }));
            writer.killAfter(random.bounded(100000));
            m_ledger.read(writer.output());
            QCOMPARE(m_ledger.problems(), QStringList());
            QVERIFY2(m_ledger.differences(m_session->file()).isEmpty(),
                qPrintable(QStringLiteral("kill %1, seed %2: %3")
                               .arg(i + 1)
                               .arg(seed)
                               .arg(m_ledger.differences(m_session->file()).join(QLatin1Char('\n')))));
        }
        m_ledger.report(QStringLiteral("%1 kills, seed %2").arg(kills).arg(seed), m_session->file());
        QCOMPARE(m_ledger.refusals(), QStringList());
        QVERIFY(m_ledger.acknowledged() > 0);
    }

    void aFirstStartThatIsKilledCanBeRepeated()
    {
        const int kills = qMax(3, setting("FAULTS_KILLS", 12) / 4);
        const quint32 seed = chosenSeed();
        QRandomGenerator random(seed);
        const QTemporaryDir folder;
        FaultCount count(QStringLiteral("first starts that are killed, seed %1").arg(seed));
        for (int i = 0; i < kills; ++i) {
            const QString file = folder.filePath(QStringLiteral("plans%1.db").arg(i));
            WriterProcess writer;
            QVERIFY(writer.launch(file, { QStringLiteral("f"), QStringLiteral("1") }));
            writer.killAfter(random.bounded(150000));
            // Either the sample's user exists, or the file is empty and the data are made now.
            ClientSession::Options options;
            options.marketSize = 200;
            const Status opened =
                ClientSession::instance().open(file, QStringLiteral("trader01"), ClientSession::Progress(), options);
            const bool isComplete = opened
                && ClientSession::instance().market().find(
                    SampleSession::record().value(QStringLiteral("symbol")).toString());
            count.add(bool(opened), isComplete);
            QVERIFY2(isComplete,
                qPrintable(QStringLiteral("kill %1, seed %2: %3").arg(i + 1).arg(seed).arg(errorText(opened))));
            ClientSession::instance().close();
        }
    }

    void eachOfTwoFirstStartsWorksOrReportsWhy()
    {
        const int rounds = setting("FAULTS_KILLS", 12) / 2;
        const QTemporaryDir folder;
        FaultCount count(QStringLiteral("pairs of first starts"));
        for (int i = 0; i < rounds; ++i) {
            const QString file = folder.filePath(QStringLiteral("plans%1.db").arg(i));
            WriterProcess first;
            WriterProcess second;
            QVERIFY(first.launch(file, { QStringLiteral("a"), QStringLiteral("1") }));
            QVERIFY(second.launch(file, { QStringLiteral("b"), QStringLiteral("1") }));
            int acknowledged = 0;
            for (WriterProcess* const writer : { &first, &second }) {
                writer->finish();
                const QString output = QString::fromUtf8(writer->output());
                const bool isStored = output.contains(QStringLiteral("stored"));
                const bool isBusy = output.contains(errorText(Error::DatabaseBusy));
                QVERIFY2(isStored || isBusy, qPrintable(output));
                acknowledged += isStored ? 1 : 0;
            }
            QVERIFY(acknowledged > 0);
            Database database;
            QCOMPARE(database.open(file), Status());
            const int stored = *PlanStore(database).count();
            for (int number = 1; number <= 2; ++number)
                count.add(number <= acknowledged, number <= stored);
            QCOMPARE(stored, acknowledged);
        }
    }

    void twoWritersLoseNothingOfEachOther()
    {
        const QString count = QString::number(setting("FAULTS_WRITES", 100));
        QCOMPARE(m_session->reopen(), Status());
        const QString mark = QStringLiteral("shared");
        m_ledger.attempt(mark);
        const QString shared = m_session->create(PlanLedger::recordOf(SampleSession::record(), mark));
        QCOMPARE(m_session->reason(), QString());
        ClientSession::instance().close();

        WriterProcess first;
        WriterProcess second;
        QVERIFY(first.start(m_session->file(), { QStringLiteral("first"), count, shared }));
        QVERIFY(second.start(m_session->file(), { QStringLiteral("second"), count, shared }));
        QVERIFY(first.finish());
        QVERIFY(second.finish());
        m_ledger.read(first.output());
        m_ledger.read(second.output());
        m_ledger.report(QStringLiteral("two writers"), m_session->file());
        QCOMPARE(m_ledger.problems(), QStringList());
        QCOMPARE(m_ledger.differences(m_session->file()), QStringList());
        QCOMPARE(m_ledger.acknowledged() + m_ledger.refusals().size(), 2 * count.toInt());
        // A writer that never gets the lock gets an error in time, and nothing of its plan is stored.
        for (const QString& refusal : m_ledger.refusals()) {
            QVERIFY2(refusal.section(QLatin1Char(' '), 0, 0).toInt() < 1000, qPrintable(refusal));
            QVERIFY2(isOfOtherWriter(refusal), qPrintable(refusal));
        }

        Database database;
        QCOMPARE(database.open(m_session->file()), Status());
        const StoredPlan plan = *PlanStore(database).plan(shared);
        QCOMPARE(plan.version, 1 + m_ledger.sharedChanges(shared));
    }

    void twoClientsIssueEachPlanOnce()
    {
        fillDay();
        int issued = 0;
        WriterProcess issuers[2];
        for (WriterProcess& issuer : issuers)
            QVERIFY(issuer.start(m_session->file(), issueDay()));
        for (WriterProcess& issuer : issuers)
            issuer.closeInput();
        for (WriterProcess& issuer : issuers) {
            QVERIFY(issuer.finish());
            QVERIFY2(answerOf(issuer).startsWith("issued "), answerOf(issuer).constData());
            issued += answerOf(issuer).mid(7).toInt();
        }
        QCOMPARE(issued, DayPlans);
        QCOMPARE(storedOfDay(), QStringLiteral("%1 %1 %1").arg(DayPlans));
    }

    void aKilledIssuerLeavesNothingHalf()
    {
        fillDay();
        const quint32 seed = chosenSeed();
        QRandomGenerator random(seed);
        for (int i = 0; i < qMax(1, setting("FAULTS_KILLS", 12) / 4); ++i) {
            WriterProcess killed;
            QVERIFY(killed.start(m_session->file(), issueDay()));
            killed.closeInput();
            killed.killAfter(random.bounded(200000));
            const QStringList counts = storedOfDay().split(QLatin1Char(' '));
            QCOMPARE(counts, QStringList({ counts.at(0), counts.at(0), counts.at(0) }));
            const int issued = counts.at(0).toInt();
            QVERIFY2(issued % PlansOfTransaction == 0 || issued == DayPlans,
                qPrintable(QStringLiteral("%1, seed %2").arg(issued).arg(seed)));
        }
        WriterProcess last;
        QVERIFY(last.start(m_session->file(), issueDay()));
        last.closeInput();
        QVERIFY(last.finish());
        QVERIFY2(answerOf(last).startsWith("issued "), answerOf(last).constData());
        QCOMPARE(storedOfDay(), QStringLiteral("%1 %1 %1").arg(DayPlans));
    }

    void aWriterWhoseFilesCannotGrowGetsAnErrorAndLosesNothing()
    {
        const QString size = QString::number(QFile(m_session->file()).size() + 200000);
        WriterProcess writer;
        QVERIFY(writer.start(
            m_session->file(), { QStringLiteral("full"), QStringLiteral("200"), QStringLiteral("limit=") + size }));
        QVERIFY(writer.finish());
        m_ledger.read(writer.output());
        m_ledger.report(QStringLiteral("files that may not grow"), m_session->file());
        QCOMPARE(m_ledger.problems(), QStringList());
        QVERIFY(m_ledger.acknowledged() > 0);
        QVERIFY(!m_ledger.refusals().empty());
        for (const QString& refusal : m_ledger.refusals()) {
            QVERIFY2(refusal.section(QLatin1Char(' '), 0, 0).toInt() < 1000, qPrintable(refusal));
            QVERIFY2(refusal.contains(QStringLiteral("数据库")), qPrintable(refusal));
        }
        QCOMPARE(m_ledger.differences(m_session->file()), QStringList());
        // With free space again, the next start writes as before.
        WriterProcess next;
        QVERIFY(next.start(m_session->file(), { QStringLiteral("room"), QStringLiteral("3") }));
        QVERIFY(next.finish());
        const int before = m_ledger.refusals().size();
        m_ledger.read(next.output());
        QCOMPARE(m_ledger.refusals().size(), before);
        QCOMPARE(m_ledger.differences(m_session->file()), QStringList());
    }

private:
    static constexpr int PlansOfTransaction = 500;
    static constexpr int DayPlans = 2 * PlansOfTransaction + 100;

    static QStringList issueDay() { return { QStringLiteral("issue"), QStringLiteral("2024-05-06") }; }
    static QByteArray answerOf(WriterProcess& issuer) { return issuer.output().trimmed().split('\n').constLast(); }

    /// Makes the plans of the day, and closes the session.
    void fillDay() const
    {
        QCOMPARE(m_session->reopen(), Status());
        QVERIFY(!m_session->create(SampleSession::record()).isEmpty());
        ClientSession::instance().close();
        QCOMPARE(m_session->multiply(DayPlans), Status());
    }

    /// How many instructions there are, of how many plans, and how many entries of the history.
    QString storedOfDay() const
    {
        Database file;
        if (!file.open(m_session->file()))
            return QString();
        const auto counts =
            file.value(QStringLiteral("SELECT count(*) || ' ' || count(DISTINCT plan) || ' ' ||"
                                      " (SELECT count(*) FROM history WHERE event = 'issued') FROM instructions"));
        return counts ? counts->toString() : QString();
    }

    std::unique_ptr<SampleSession> m_session;
    PlanLedger m_ledger;
};

QTEST_GUILESS_MAIN(StoreProcessesTest)
#include "tst_store_processes.moc"
