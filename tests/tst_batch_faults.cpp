// Imports and changes of states on a disk that fails: all of a transaction is stored or nothing, and the reason is
// reported.
#include "ClientSession.h"
#include "FaultCount.h"
#include "FaultyDisk.h"
#include "PlanLedger.h"
#include "PlanStates.h"
#include "SampleSession.h"
#include "TestStatus.h"
#include "TransferTest.h"

#include <QFile>
#include <QRegularExpression>
#include <QtTest>

using FaultyDisk::Fault;
using FaultyDisk::Lasting;
using FaultyDisk::Operation;

Q_DECLARE_METATYPE(FaultyDisk::Fault)
Q_DECLARE_METATYPE(FaultyDisk::Lasting)
Q_DECLARE_METATYPE(FaultyDisk::Operation)

namespace {

constexpr int MostOperations = 100000;
constexpr int FirstOperations = 12; // which all fail in turn

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The failure at the end of the causes.
Error reasonOf(Status status)
{
    while (!status.cause())
        status = status.cause();
    return status.error();
}

} // namespace

class BatchFaultsTest : public TransferTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { FaultyDisk::install(); }

    void anImportIsStoredWholeOrNotAtAll_data()
    {
        addFaults([this](const Fill& fill) {
            for (const QString& kind : kinds() + QStringList(text("plans")))
                fill(kind);
        });
    }

    void anImportIsStoredWholeOrNotAtAll()
    {
        QFETCH(QString, what);
        importUntil(what);
        const ImportTask task = taskOf(what, sample(what));
        ClientSession::instance().close();
        checkEach([&] {
            ImportReport report;
            const Status status = ImportRun::run(task, report);
            return report.isStored == bool(status) ? status : Status(Error::OutcomeUnknown, {}, status);
        });
    }

    void changesOfStatesAreStoredInWholeParts_data()
    {
        addFaults([](const Fill& fill) { fill(QStringLiteral("states")); });
    }

    // The parts have 100 plans.
    void changesOfStatesAreStoredInWholeParts()
    {
        constexpr int Part = 100;
        constexpr int Plans = 2 * Part + 50;
        SampleSession session;
        QVERIFY(!session.create(SampleSession::record()).isEmpty());
        QCOMPARE(session.multiply(Plans), Status());
        ClientSession& client = ClientSession::instance();
        QStringList ids = *client.plans().ids({}, every(Plans));
        QCOMPARE(ids.size(), Plans);
        // Pages leave a small cache before the end, and reads reach the disk.
        QCOMPARE(client.database().configure(QStringLiteral("PRAGMA cache_size = 5")), Status());
        QFETCH(Fault, fault);
        QFETCH(Lasting, lasting);
        QFETCH(Operation, operation);
        FaultCount count(QStringLiteral("changes of ") + QString::fromLatin1(QTest::currentDataTag()));
        PlanState state = PlanState::Paused;
        const int stride = setting("FAULTS_DAY_EVERY", 499);
        int refused = 0;
        bool failed = true;
        for (int nth = 1; failed && nth < MostOperations; nth += nth < FirstOperations ? 1 : stride) {
            QCOMPARE(client.database().configure(QStringLiteral("PRAGMA shrink_memory")), Status());
            FaultyDisk::failAt(nth, fault, lasting, operation);
            const StateChanges changes =
                PlanStates(client.database(), client.user(), client.calendar(), SampleSession::today())
                    .set(ids, state, QString(), [](int) { return true; });
            failed = FaultyDisk::hasFailed();
            FaultyDisk::heal();
            const QStringList stored =
                *client.database().texts(QStringLiteral("SELECT number FROM plans WHERE state = ?"), { nameOf(state) });
            for (const QString& id : qAsConst(ids)) {
                const bool isStored = stored.contains(QString::number(PlanId::toNumber(id).value_or(0)));
                count.add(changes.changed.contains(id), isStored);
            }
            QCOMPARE(count.lost(), 0);
            QCOMPARE(stored.size(), changes.changed.size());
            QVERIFY(changes.changed.size() % Part == 0 || changes.changed.size() == Plans);
            if (!changes.failure) {
                QVERIFY(failed);
                ++refused;
                const Error reason = reasonOf(changes.failure);
                QVERIFY2(reason == expected(fault) || reason == Error::TransactionEnded,
                    qPrintable(errorText(changes.failure)));
            }
            // The rest, and then the other state.
            QStringList rest;
            for (const QString& id : qAsConst(ids)) {
                if (!changes.changed.contains(id))
                    rest << id;
            }
            QCOMPARE(set(rest, state).changed, rest);
            state = state == PlanState::Paused ? PlanState::Active : PlanState::Paused;
        }
        QVERIFY(!failed);
        QVERIFY2(refused > 3, qPrintable(QString::number(refused)));
    }

private:
    using Fill = std::function<void(const QString& what)>;

    static Error expected(Fault fault) { return fault == Fault::Full ? Error::DiskFull : Error::DiskFailed; }
    static QString nameOf(PlanState state)
    {
        return state == PlanState::Paused ? QStringLiteral("paused") : QStringLiteral("active");
    }

    static PlanSlice every(int limit)
    {
        PlanSlice slice;
        slice.limit = limit;
        return slice;
    }

    static StateChanges set(const QStringList& ids, PlanState state)
    {
        ClientSession& client = ClientSession::instance();
        return PlanStates(client.database(), client.user(), client.calendar(), SampleSession::today())
            .set(ids, state, QString(), [](int) { return true; });
    }

    static void addFaults(const std::function<void(const Fill& fill)>& each)
    {
        QTest::addColumn<QString>("what");
        QTest::addColumn<Fault>("fault");
        QTest::addColumn<Lasting>("lasting");
        QTest::addColumn<Operation>("operation");
        each([](const QString& what) {
            const auto row = [&what](const char* name, Fault fault, Lasting lasting, Operation operation) {
                QTest::newRow(qPrintable(what + QStringLiteral(", ") + QLatin1String(name)))
                    << what << fault << lasting << operation;
            };
            row("disk full for good", Fault::Full, Lasting::ForGood, Operation::Change);
            row("write error once", Fault::InputOutput, Lasting::Once, Operation::Change);
            row("read error once", Fault::InputOutput, Lasting::Once, Operation::Read);
        });
    }

    /// Imports into copies of the database, while one operation of the disk after the other fails.
    void checkEach(const std::function<Status()>& import)
    {
        QFETCH(Fault, fault);
        QFETCH(Lasting, lasting);
        QFETCH(Operation, operation);
        const QString before = contents();
        const QByteArray file = contentOf(database().ownersLocation());
        QCOMPARE(import(), Status());
        const QString whole = contents();
        QVERIFY(whole != before);
        FaultCount count(QStringLiteral("imports, ") + QString::fromLatin1(QTest::currentDataTag()));
        const int stride = setting("FAULTS_EVERY", 7);
        int refused = 0;
        bool failed = true;
        for (int nth = 1; failed && nth < MostOperations; nth += stride) {
            restore(file);
            FaultyDisk::failAt(nth, fault, lasting, operation);
            const Status status = import();
            failed = FaultyDisk::hasFailed();
            FaultyDisk::heal();
            const QString now = contents();
            count.add(bool(status), now != before);
            if (status) {
                QCOMPARE(withoutTimes(now), withoutTimes(whole));
                continue;
            }
            ++refused;
            QVERIFY(failed);
            QVERIFY2(now == before, qPrintable(QStringLiteral("operation %1: %2").arg(nth).arg(errorText(status))));
            const Error reason = reasonOf(status);
            QVERIFY2(reason == expected(fault) || reason == Error::TransactionEnded,
                qPrintable(QStringLiteral("operation %1: %2").arg(nth).arg(errorText(status))));
            // It is imported afterwards.
            QCOMPARE(import(), Status());
            QCOMPARE(withoutTimes(contents()), withoutTimes(whole));
        }
        QVERIFY(!failed);
        QCOMPARE(count.lost(), 0);
        QVERIFY2(refused > 3, qPrintable(QString::number(refused)));
    }

    static QString withoutTimes(QString rows)
    {
        return rows.replace(QRegularExpression(QStringLiteral("\\d{4}-\\d\\d-\\d\\dT[^|\"\\n]*Z")), QString());
    }

    void restore(const QByteArray& content) const
    {
        const QString name = database().ownersLocation();
        for (const char* const end : { "-wal", "-shm" })
            QFile::remove(name + QLatin1String(end));
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
};

QTEST_GUILESS_MAIN(BatchFaultsTest)
#include "tst_batch_faults.moc"
