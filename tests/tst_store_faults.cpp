#include "AgreementStore.h"
#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "FaultCount.h"
#include "FaultyDisk.h"
#include "InstructionIssuer.h"
#include "LoggedTest.h"
#include "PlanEvents.h"
#include "PlanLedger.h"
#include "PlanSubmission.h"
#include "SampleSession.h"
#include "Signatures.h"
#include "TestStatus.h"
#include "WriterProcess.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QtTest>

#include <sqlite3.h>

#include <cstdio>

using FaultyDisk::Fault;
using FaultyDisk::Lasting;

Q_DECLARE_METATYPE(FaultyDisk::Fault)
Q_DECLARE_METATYPE(FaultyDisk::Lasting)

namespace {

constexpr int OneSecond = 1000 * TEST_TIMEOUT_SCALE;
// More writes than any one plan takes.
constexpr int MostOperations = 500;

const QString Busy = errorText(Error::DatabaseBusy);
const QString ReadOnlyText = errorText(Error::DatabaseReadOnly);
const QString FullText = errorText(Error::DiskFull);

ClientSession& client()
{
    return ClientSession::instance();
}

sqlite3* connection()
{
    return *static_cast<sqlite3* const*>(client().database().handle().constData());
}

/// Lets every COMMIT of the session fail while it exists, and calls a function before the client looks up the outcome.
class FailingCommit {
public:
    explicit FailingCommit(const std::function<void()>& then)
        : m_then(then)
    {
        sqlite3_commit_hook(
            connection(), [](void*) { return 1; }, nullptr);
        sqlite3_rollback_hook(
            connection(), [](void* self) { static_cast<FailingCommit*>(self)->m_then(); }, this);
    }
    ~FailingCommit() { end(); }
    FailingCommit(const FailingCommit&) = delete;
    FailingCommit& operator=(const FailingCommit&) = delete;

    void setThen(const std::function<void()>& then) { m_then = then; }
    void end()
    {
        sqlite3_commit_hook(connection(), nullptr, nullptr);
        sqlite3_rollback_hook(connection(), nullptr, nullptr);
    }

private:
    std::function<void()> m_then;
};

QString reasonOf(Fault fault)
{
    // Without the code.
    return fault == Fault::Full ? FullText : errorText(Error::DiskFailed).section(QChar(u'（'), 0, 0);
}

QByteArray contentOf(const QString& file)
{
    QFile opened(file);
    return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray();
}

bool writeContent(const QString& file, const QByteArray& content)
{
    QFile opened(file);
    return opened.open(QIODevice::WriteOnly) && opened.write(content) == content.size();
}

/// Copies the file as if the machine had stopped now: the database and its log.
bool copyAsLeft(const QString& from, const QString& to)
{
    QFile::remove(to);
    QFile::remove(to + QStringLiteral("-shm"));
    QFile::remove(to + QStringLiteral("-wal"));
    const QString log = QStringLiteral("-wal");
    return QFile::copy(from, to) && (!QFile::exists(from + log) || QFile::copy(from + log, to + log));
}

} // namespace

/// A failing disk under the client's file. Whatever the answer, every acknowledged plan is stored, every stored plan
/// was sent, every record is complete, and the answer comes within a second.
class StoreFaultsTest : public LoggedTest {
    Q_OBJECT

private:
    void prepare() override
    {
        m_session = std::make_unique<SampleSession>();
        QCOMPARE(m_session->opened(), Status());
        m_base = SampleSession::record();
        m_ledger = PlanLedger();
        m_ledger.setBase(m_base);
        m_plan.clear();
        QCOMPARE(create(), QString());
    }
    void tidyUp() override
    {
        FaultyDisk::heal();
        m_session.reset();
    }

private Q_SLOTS:
    void initTestCase() { FaultyDisk::install(); }

    void theLedgerReportsEveryDifference()
    {
        QCOMPARE(create(), QString());
        QCOMPARE(modify(), QString());
        QCOMPARE(m_ledger.differences(m_session->file()), QStringList());
        const QStringList changes{ QStringLiteral("UPDATE plans SET version = 1 WHERE number = 1"),
            QStringLiteral("UPDATE plans SET version = 3 WHERE number = 1"),
            QStringLiteral("UPDATE plans SET fields = json_set(fields, '$.remark', 'x') WHERE number = 1"),
            QStringLiteral("UPDATE plans SET fields = json_set(fields, '$.totalQty', '1') WHERE number = 2"),
            QStringLiteral("UPDATE plans SET fields = json_set(fields, '$.planOtherParam', '{}') WHERE number = 2"),
            QStringLiteral("UPDATE plans SET side = NULL WHERE number = 2"),
            QStringLiteral("DELETE FROM plans WHERE number = 2") };
        for (const QString& change : changes) {
            QVERIFY(copyAsLeft(m_session->file(), copy()));
            Database database;
            QCOMPARE(database.open(copy()), Status());
            // The history would keep a plan from being deleted.
            QCOMPARE(database.configure(QStringLiteral("PRAGMA foreign_keys = OFF")), Status());
            QCOMPARE(database.execute(change), Status());
            database.close();
            QVERIFY2(m_ledger.differences(copy()).size() == 1, qPrintable(change));
        }
    }

    void eachWriteFailsInTurn_data()
    {
        QTest::addColumn<bool>("modifies");
        QTest::addColumn<bool>("movesAtOnce");
        QTest::addColumn<Fault>("fault");
        QTest::addColumn<Lasting>("lasting");
        QTest::addColumn<int>("first");
        int row = 0;
        for (const bool modifies : { false, true }) {
            for (const bool moves : { false, true }) {
                for (const Fault fault : { Fault::InputOutput, Fault::Full }) {
                    for (const Lasting lasting : { Lasting::Once, Lasting::ForGood }) {
                        const QString name =
                            QStringLiteral("%1, %2, %3, %4")
                                .arg(modifies ? QStringLiteral("a change") : QStringLiteral("a new plan"),
                                    moves ? QStringLiteral("log moved at once") : QStringLiteral("log kept"),
                                    fault == Fault::Full ? QStringLiteral("disk full") : QStringLiteral("write error"),
                                    lasting == Lasting::Once ? QStringLiteral("once") : QStringLiteral("for good"));
                        QTest::newRow(qPrintable(name))
                            << modifies << moves << fault << lasting << 1 + row++ % everyNthWrite();
                    }
                }
            }
        }
    }

    // The rows begin at different writes, so that together they try all. `FAULTS_EVERY` = 1 tries all in each row.
    void eachWriteFailsInTurn()
    {
        QFETCH(bool, modifies);
        QFETCH(bool, movesAtOnce);
        QFETCH(Fault, fault);
        QFETCH(Lasting, lasting);
        QFETCH(int, first);
        if (movesAtOnce)
            QCOMPARE(client().database().configure(QStringLiteral("PRAGMA wal_autocheckpoint = 1")), Status());
        const int stride = everyNthWrite();
        int refused = 0;
        int failing = first;
        for (; failing < MostOperations; failing += stride) {
            FaultyDisk::failAt(failing, fault, lasting);
            const QString reason = modifies ? modify() : create();
            const bool failed = FaultyDisk::hasFailed();
            if (!reason.isEmpty()) {
                ++refused;
                QVERIFY2(reason.startsWith(reasonOf(fault)), qPrintable(reason));
                QVERIFY(!reason.contains(QStringLiteral(" ms")));
                QVERIFY(failed);
            }
            checkStored();
            FaultyDisk::heal();
            // The same session continues to work, and the refused plan is not stored.
            QCOMPARE(m_ledger.differences(m_session->file()), QStringList());
            QCOMPARE(modifies ? modify() : create(), QString());
            if (!failed)
                break;
        }
        QVERIFY(failing < MostOperations);
        QVERIFY(refused > 3 / stride);
        QCOMPARE(client().plans().plan(m_plan)->version, m_version);
        QCOMPARE(m_session->reopen(), Status());
        QCOMPARE(m_ledger.differences(m_session->file()), QStringList());
        m_ledger.report(
            QStringLiteral("each write fails, ") + QString::fromLatin1(QTest::currentDataTag()), m_session->file());
    }

    void eachWriteOfTheFirstStartFailsInTurn_data()
    {
        QTest::addColumn<Fault>("fault");
        QTest::addColumn<Lasting>("lasting");
        QTest::newRow("write error, once") << Fault::InputOutput << Lasting::Once;
        QTest::newRow("write error, for good") << Fault::InputOutput << Lasting::ForGood;
        QTest::newRow("disk full, for good") << Fault::Full << Lasting::ForGood;
    }

    // Tries each of the first and the last writes, and samples those between: they all write pages of the market.
    // `FAULTS_EVERY` = 1 tries all.
    void eachWriteOfTheFirstStartFailsInTurn()
    {
        QFETCH(Fault, fault);
        QFETCH(Lasting, lasting);
        const int stride = setting("FAULTS_EVERY", 97);
        ClientSession::Options options;
        options.marketSize = 200;
        const QString file = m_folder.filePath(QStringLiteral("first.db"));
        client().close();
        int starts = 0;
        int refused = 0;
        int complete = 0;
        bool failed = true;
        for (int failing = 1; failed; failing += failing < 12 ? 1 : stride) {
            for (const char* const end : { "", "-wal", "-shm", "-journal" })
                QFile::remove(file + QLatin1String(end));
            FaultyDisk::failAt(failing, fault, lasting);
            const Status opened = client().open(file, QStringLiteral("trader01"), ClientSession::Progress(), options);
            failed = FaultyDisk::hasFailed();
            QCOMPARE(client().isOpen(), bool(opened));
            ++starts;
            refused += opened ? 0 : 1;
            const QString reason = errorText(opened);
            QVERIFY2(opened || reason.contains(QStringLiteral("数据库")), qPrintable(reason));
            client().close();
            FaultyDisk::heal();
            const Status again = client().open(file, QStringLiteral("trader01"), ClientSession::Progress(), options);
            QVERIFY2(again, qPrintable(QStringLiteral("write %1: %2").arg(failing).arg(errorText(again))));
            const bool isComplete = client().market().find(m_base.value(QStringLiteral("symbol")).toString());
            complete += opened && isComplete ? 1 : 0;
            QVERIFY(isComplete);
            client().close();
        }
        QVERIFY(refused > 3);
        reportFaults(QStringLiteral("first starts, ") + QString::fromLatin1(QTest::currentDataTag()), starts,
            starts - refused, complete, starts - refused - complete);
    }

    void aFileThatHasReachedItsLargestSizeRefusesAndKeepsWhatItHas()
    {
        const int allowed = client().database().value(QStringLiteral("PRAGMA page_count"))->toInt() + 4;
        QCOMPARE(client().database().configure(QStringLiteral("PRAGMA max_page_count = %1").arg(allowed)), Status());
        QString reason;
        for (int n = 0; reason.isEmpty() && n < MostOperations; ++n)
            reason = create();
        QCOMPARE(reason, FullText);
        QCOMPARE(create(), FullText);
        // The history of a change needs space, too.
        QCOMPARE(modify(), FullText);
        checkStored();
        QCOMPARE(client().database().configure(QStringLiteral("PRAGMA max_page_count = 1000000")), Status());
        QCOMPARE(create(), QString());
        checkStored();
        m_ledger.report(QStringLiteral("a file of the largest size"), m_session->file());
    }

    void anUnknownOutcomeIsSaidAndThePlanIsNotStoredTwice()
    {
        // COMMIT fails, and the file cannot be read afterwards.
        FailingCommit commit(
            [] { FaultyDisk::failAt(1, Fault::Taken, Lasting::ForGood, FaultyDisk::Operation::Lock); });
        const PlanLedger::Record record = PlanLedger::recordOf(m_base, QStringLiteral("unknown"));
        const QString reason = AutoPlanLogic::instance().CreateNewPlan(record);
        QVERIFY2(reason.startsWith(QStringLiteral("无法确认是否已保存")), qPrintable(reason));
        commit.end();
        FaultyDisk::heal();
        QCOMPARE(*client().plans().count(), 1);
        QCOMPARE(AutoPlanLogic::instance().CreateNewPlan(record), QString());
        QCOMPARE(AutoPlanLogic::instance().CreateNewPlan(record), QString());
        QCOMPARE(*client().plans().count(), 3);
    }

    void whatOtherFormsSendMeanwhileDoesNotMakeAnUnknownPlanTwo()
    {
        const PlanLedger::Record record = PlanLedger::recordOf(m_base, QStringLiteral("unknown"));
        storeWithoutAnswer(record);
        QCOMPARE(*client().plans().count(), 2);
        QCOMPARE(create(), QString());
        QVERIFY(!AutoPlanLogic::instance().CreateNewPlan({}).isEmpty());
        QCOMPARE(AutoPlanLogic::instance().CreateNewPlan(record), QString());
        QCOMPARE(*client().plans().count(), 3);
    }

    void anUnknownOutcomeIsLookedUpUntilItIsKnown()
    {
        qRegisterMetaType<UnknownRequest>("UnknownRequest");
        const QSignalSpy known(&PlanEvents::instance(), &PlanEvents::outcomeKnown);
        const PlanLedger::Record record = PlanLedger::recordOf(m_base, QStringLiteral("unknown"));
        const QString request = storeWithoutAnswer(record);
        QTRY_COMPARE(known.count(), 1);
        QCOMPARE(known.constFirst().at(1).toBool(), true);
        QCOMPARE(*client().plans().count(), 2);
        QVERIFY(client().requests().idOf(record) != request);
    }

    // After each failed COMMIT, the client looks up what is stored before it answers.

    void theOutcomeOfANewPlanIsLookedUp()
    {
        const QString request = PlanRequests::newId();
        const PlanLedger::Record record = PlanLedger::recordOf(m_base, QStringLiteral("looked up"));
        checkOutcomes([&] { return PlanSubmission::create(record, request).status(); },
            [&](Database& other) { return PlanStore(other).create(record, client().changeNow(request)).status(); });
        QCOMPARE(*client().plans().count(), 2);
    }

    void theOutcomeOfAChangeIsLookedUp()
    {
        const QString request = PlanRequests::newId();
        const PlanLedger::Record record = PlanLedger::recordOf(m_base, QStringLiteral("looked up"));
        std::optional<PlanConflict> conflict;
        checkOutcomes([&] { return PlanSubmission::change(m_plan, 1, record, request, conflict); },
            [&](Database& other) { return PlanStore(other).modify(m_plan, 1, record, client().changeNow(request)); });
        QCOMPARE(client().plans().plan(m_plan)->version, 2);
    }

    void theOutcomeOfADayIsLookedUp()
    {
        const QDate day = SampleSession::today();
        checkOutcomes([&] { return InstructionIssuer::issueDay(day).status(); },
            [&](Database& other) {
                return InstructionStore(other).add(m_plan, day, {}, client().changeNow()).status();
            });
        QCOMPARE(client().instructions().ofPlan(m_plan)->size(), 1);
    }

    void theOutcomeOfASignatureIsLookedUp()
    {
        const QString protocol =
            client().database().texts(QStringLiteral("SELECT protocol FROM agreements"), {})->value(0);
        const QStringList clients = client().accounts().clientNumbers();
        QVERIFY(!protocol.isEmpty() && !clients.isEmpty());
        QCOMPARE(client().database().execute(QStringLiteral("DELETE FROM signatures")), Status());
        checkOutcomes([&] { return signAgreement(protocol, clients); },
            [&](Database& other) {
                AgreementStore agreements(other);
                Status status;
                for (const QString& number : clients)
                    status = status ? agreements.sign(protocol, number, client().changeNow()) : status;
                return status;
            });
        QCOMPARE(*client().unsignedClients(protocol), QStringList());
    }

    void aFileThatCannotBeWrittenIsReadAndNotWritten()
    {
        client().close();
        const QByteArray before = contentOf(m_session->file());
        FaultyDisk::setReadOnly(true);
        QCOMPARE(timed([this] { return open(m_session->file()); }), QString());
        QCOMPARE(create(), ReadOnlyText);
        QCOMPARE(modify(), ReadOnlyText);
        QCOMPARE(*client().plans().count(), 1);
        client().close();
        QCOMPARE(contentOf(m_session->file()), before);
        FaultyDisk::heal();
        QCOMPARE(open(m_session->file()), QString());
        QCOMPARE(create(), QString());
        QCOMPARE(modify(), QString());
        checkStored();
        m_ledger.report(QStringLiteral("a read-only file"), m_session->file());
    }

    void aLockedFileIsReportedAndWrittenAfterwards()
    {
        WriterProcess other;
        QVERIFY(other.start(m_session->file(), { QStringLiteral("lock") }));
        QCOMPARE(create(), Busy);
        QCOMPARE(modify(), Busy);
        QCOMPARE(*client().plans().count(), 1);
        client().close();
        QCOMPARE(timed([this] { return open(m_session->file()); }), QString());
        QCOMPARE(create(), Busy);
        QVERIFY(other.release());
        QCOMPARE(create(), QString());
        QCOMPARE(modify(), QString());
        checkStored();
        m_ledger.report(QStringLiteral("a locked file"), m_session->file());
    }

    void aDamagedFileIsRefusedOrReadWithinASecond_data()
    {
        QTest::addColumn<QString>("damage");
        QTest::newRow("the file ends early") << QStringLiteral("cut");
        QTest::newRow("bytes are others") << QStringLiteral("bytes");
        QTest::newRow("a page is empty") << QStringLiteral("page");
        QTest::newRow("a page stands in another's place") << QStringLiteral("copy");
    }

    void aDamagedFileIsRefusedOrReadWithinASecond()
    {
        QFETCH(QString, damage);
        constexpr int Page = 4096;
        const int rounds = setting("FAULTS_ROUNDS", 25);
        const int given = setting("FAULTS_SEED", 20240506);
        QRandomGenerator random(static_cast<quint32>(given));
        // Damage is met by the reads of the form or by the check of all pages.
        log().allowWarning(QStringLiteral("数据库"));
        log().allowWarning(QStringLiteral("的内容已损坏"));
        QCOMPARE(create(), QString());
        client().close();
        const QByteArray sound = contentOf(m_session->file());
        const int pages = sound.size() / Page;
        int refused = 0;
        int reported = 0;
        const QString name = QStringLiteral("damaged files, ") + QString::fromLatin1(QTest::currentDataTag());
        FaultCount count(name);
        for (int i = 0; i < rounds; ++i) {
            QByteArray damaged = sound;
            const int at = random.bounded(pages) * Page;
            if (damage == QLatin1String("cut")) {
                damaged.truncate(random.bounded(damaged.size()));
            } else if (damage == QLatin1String("bytes")) {
                for (int n = 0; n < 40; ++n)
                    damaged[random.bounded(damaged.size())] = static_cast<char>(random.bounded(256));
            } else if (damage == QLatin1String("page")) {
                damaged.replace(at, Page, QByteArray(Page, '\0'));
            } else {
                damaged.replace(at, Page, sound.mid(random.bounded(pages) * Page, Page));
            }
            QFile::remove(copy() + QStringLiteral("-wal"));
            QFile::remove(copy() + QStringLiteral("-shm"));
            QVERIFY(writeContent(copy(), damaged));
            const QString where = QStringLiteral("round %1, seed %2").arg(i + 1).arg(given);
            const QString reason = timed([this] { return open(copy()); });
            QVERIFY2(!reason.contains(QStringLiteral(" ms")), qPrintable(where + reason));
            if (!reason.isEmpty()) {
                ++refused;
                count.add(false, false);
                // A file that is refused stays unchanged; if the damage shows only later, other pages may have been
                // written.
                const bool untaken = reason.startsWith(QStringLiteral("无法打开数据库")) && !damaged.isEmpty();
                QVERIFY2(!untaken || contentOf(copy()) == damaged, qPrintable(where + reason));
                continue;
            }
            // A file that still opens can be used: there is an answer, whatever it is, and no crash. A plan that was
            // acknowledged is there, or the damage is reported.
            const QString mark = QStringLiteral("round-%1").arg(i);
            const bool isAcknowledged =
                AutoPlanLogic::instance().CreateNewPlan(PlanLedger::recordOf(m_base, mark)).isEmpty();
            AutoPlanLogic::instance().GetPlanInfo(m_plan);
            client().close();
            const bool isOpen = open(copy()).isEmpty();
            const auto newest =
                isOpen ? client().plans().page(0, 1) : Result<QVector<StoredPlan>>(Error::DatabaseCorrupt);
            client().close();
            reported += isAcknowledged && !newest ? 1 : 0;
            const bool isStored = newest && newest->value(0).record.value(AutoPlanField::BaseField::remark) == mark;
            count.add(isAcknowledged && newest, isStored);
        }
        count.setName(QStringLiteral("%1, %2 refused, %3 reported later, seed %4")
                          .arg(name)
                          .arg(refused)
                          .arg(reported)
                          .arg(given));
        QVERIFY(refused > 0);
        QCOMPARE(count.lost(), 0);
    }

    void aDamagedLogBringsNothingThatWasNotSent()
    {
        const int rounds = setting("FAULTS_ROUNDS", 25);
        const int given = setting("FAULTS_SEED", 20240506);
        QRandomGenerator random(static_cast<quint32>(given));
        for (int i = 0; i < 6; ++i)
            QCOMPARE(i % 2 == 0 ? create() : modify(), QString());
        const QString log = QStringLiteral("-wal");
        const QByteArray sound = contentOf(m_session->file() + log);
        QVERIFY(sound.size() > 4096);
        // The content of the log may be lost, so no plan counts as acknowledged. Every stored plan must be one that was
        // sent, and complete.
        PlanLedger attempts;
        attempts.setBase(m_base);
        for (int n = 1; n <= m_count; ++n) {
            attempts.attempt(QStringLiteral("created-%1").arg(n));
            attempts.attemptChange(m_plan, 0, QStringLiteral("modified-%1").arg(n));
        }
        FaultCount count(QStringLiteral("damaged logs"));
        for (int i = 0; i < rounds; ++i) {
            QByteArray damaged = sound;
            if (i % 2 == 0)
                damaged.truncate(random.bounded(damaged.size()));
            else
                damaged[random.bounded(damaged.size())] = static_cast<char>(random.bounded(256));
            QVERIFY(copyAsLeft(m_session->file(), copy()));
            QVERIFY(writeContent(copy() + log, damaged));
            const QStringList differences = attempts.differences(copy());
            count.addFile(differences.isEmpty());
            QCOMPARE(differences, QStringList());
        }
    }

private:
    static int everyNthWrite() { return setting("FAULTS_EVERY", 3); }

    /// Sends a new plan; the first one is modified later.
    QString create()
    {
        const QString mark = QStringLiteral("created-%1").arg(++m_count);
        m_ledger.attempt(mark);
        const QString reason =
            timed([&] { return AutoPlanLogic::instance().CreateNewPlan(PlanLedger::recordOf(m_base, mark)); });
        if (!reason.isEmpty())
            return reason;
        const QString id = client().plans().page(0, 1)->value(0).id;
        m_ledger.acknowledge(id, 1, mark);
        if (m_plan.isEmpty()) {
            m_plan = id;
            m_version = 1;
        }
        return QString();
    }

    QString modify()
    {
        const QString mark = QStringLiteral("modified-%1").arg(++m_count);
        AutoPlanLogic::instance().GetPlanInfo(m_plan);
        m_ledger.attemptChange(m_plan, m_version + 1, mark);
        PlanLedger::Record record = PlanLedger::recordOf(m_base, mark);
        record.insert(AutoPlanField::BaseField::autoPlanId, m_plan);
        const QString reason = timed([&] { return AutoPlanLogic::instance().modifyPlan(record); });
        if (reason.isEmpty())
            m_ledger.acknowledge(m_plan, ++m_version, mark);
        return reason;
    }

    /// Sends a new plan that is stored, although its COMMIT fails and the file cannot be read afterwards. Returns the
    /// request's id.
    static QString storeWithoutAnswer(const PlanLedger::Record& record)
    {
        const QString request = client().requests().idOf(record);
        client().requests().keep(request, record);
        FailingCommit commit([&] {
            Database other;
            const bool isOpen = bool(other.open(client().database().location()));
            const bool isStored = isOpen && PlanStore(other).create(record, client().changeNow(request));
            if (isStored)
                FaultyDisk::failAt(1, Fault::Taken, Lasting::ForGood, FaultyDisk::Operation::Lock);
        });
        const QString reason = AutoPlanLogic::instance().CreateNewPlan(record);
        commit.end();
        FaultyDisk::heal();
        return reason.startsWith(QStringLiteral("无法确认是否已保存")) ? request : QString();
    }

    /// Sends something whose COMMIT fails: it is not stored, or the file cannot be read afterwards, or it is stored all
    /// the same, by another connection here.
    void checkOutcomes(const std::function<Status()>& send, const std::function<Status(Database&)>& store)
    {
        FailingCommit commit([] {});
        const Status failed = send();
        QVERIFY(!failed && failed.error() != Error::OutcomeUnknown);
        commit.setThen([] { FaultyDisk::failAt(1, Fault::Taken, Lasting::ForGood, FaultyDisk::Operation::Lock); });
        QCOMPARE(send(), Status(Error::OutcomeUnknown, {}, failed));
        FaultyDisk::heal();
        Status stored = Error::DatabaseNotOpen;
        commit.setThen([&] {
            Database other;
            stored = other.open(m_session->file());
            stored = stored ? store(other) : stored;
        });
        QCOMPARE(send(), Status());
        QCOMPARE(stored, Status());
        commit.end();
        QCOMPARE(send(), Status());
    }

    QString timed(const std::function<QString()>& work)
    {
        QElapsedTimer clock;
        clock.start();
        const QString reason = work();
        const qint64 elapsed = clock.elapsed();
        return elapsed < OneSecond ? reason : QStringLiteral("%1 after %2 ms").arg(reason).arg(elapsed);
    }

    /// Verifies the file as if the machine stopped now.
    void checkStored()
    {
        QVERIFY(copyAsLeft(m_session->file(), copy()));
        QCOMPARE(m_ledger.differences(copy()), QStringList());
    }

    QString copy() const { return m_folder.filePath(QStringLiteral("copy.db")); }

    QString open(const QString& file)
    {
        setClientToday(SampleSession::today());
        return errorText(client().open(file, QStringLiteral("trader01")));
    }

    std::unique_ptr<SampleSession> m_session;
    QTemporaryDir m_folder;
    PlanLedger::Record m_base;
    PlanLedger m_ledger;
    QString m_plan; ///< the plan that is modified
    int m_version = 0;
    int m_count = 0;
};

QTEST_GUILESS_MAIN(StoreFaultsTest)
#include "tst_store_faults.moc"
