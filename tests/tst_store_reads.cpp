#include "AgreementDC.h"
#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "BondConversion.h"
#include "BusinessDataInterface.h"
#include "CDataBase.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "FaultyDisk.h"
#include "InstructionBusinessDataInterface.h"
#include "InstructionIssuer.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "LogCatcher.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "PlanEvents.h"
#include "PlanLedger.h"
#include "SampleSession.h"
#include "StoreReads.h"
#include "StrategyLibrary.h"
#include "TestStatus.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSemaphore>
#include <QtTest>

using FaultyDisk::Fault;
using FaultyDisk::Lasting;
using FaultyDisk::Operation;
using namespace PlanCodes;

Q_DECLARE_METATYPE(FaultyDisk::Fault)
Q_DECLARE_METATYPE(FaultyDisk::Lasting)

namespace {

// A second in milliseconds, and what a busy machine adds; without a limit the wait is ten seconds.
constexpr int LongestWait = 3000;
constexpr int MostReads = 2000;
const QString Account = QStringLiteral("100001");

ClientSession& client()
{
    return ClientSession::instance();
}

} // namespace

/// A disk that cannot be read. A read finds all that is stored or fails; rights never come out of a failure.
class TestStoreReads : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { FaultyDisk::install(); }
    void init();
    void cleanup();

    void eachReadFindsEverythingOrFails_data();
    void eachReadFindsEverythingOrFails();
    void aLoginThatCannotReadLeavesTheSessionClosed();
    void aMissingTableStopsWhatNeedsIt_data();
    void aMissingTableStopsWhatNeedsIt();
    void aServiceThatCannotReadRefusesAndReports();
    void aChangeThatCannotReadTheInstructionsIsRefused();
    void aDayWhoseReadsFailIsIssuedWholeOrNotAtAll();
    void aDayOnAFailingDiskIsIssuedInWholeParts_data();
    void aDayOnAFailingDiskIsIssuedInWholeParts();
    void damageIsReportedAfterTheStart();
    void aThreadCreatesNoFile();
    void anEndlessReadEndsWithItsThread();
    void aFaultInTheLocksOfTheLogIsReportedWithinASecond_data();
    void aFaultInTheLocksOfTheLogIsReportedWithinASecond();

private:
    void forgetPages() { QCOMPARE(client().database().configure(QStringLiteral("PRAGMA shrink_memory")), Status()); }
    void addPlans(int count);
    int instructionCount();

    std::unique_ptr<LogCatcher> m_log;
    std::unique_ptr<SampleSession> m_session;
};

void TestStoreReads::init()
{
    m_log = std::make_unique<LogCatcher>();
    m_session = std::make_unique<SampleSession>();
    QCOMPARE(m_session->opened(), Status());
    QVERIFY(!m_session->create(SampleSession::record()).isEmpty());
}

void TestStoreReads::cleanup()
{
    FaultyDisk::heal();
    m_session.reset();
    QCOMPARE(m_log->problems(), QStringList());
    m_log.reset();
}

void TestStoreReads::addPlans(int count)
{
    const QMap<QString, QVariant> record = SampleSession::record();
    const Status status = client().database().transaction([&]() -> Status {
        for (int i = 0; i < count; ++i) {
            const auto id = client().plans().create(record, client().changeNow());
            if (!id)
                return id.status();
        }
        return {};
    });
    QCOMPARE(status, Status());
}

int TestStoreReads::instructionCount()
{
    return client().database().value(QStringLiteral("SELECT count(*) FROM instructions"))->toInt();
}

void TestStoreReads::eachReadFindsEverythingOrFails_data()
{
    QTest::addColumn<int>("number");
    const auto all = StoreReads::all();
    for (int i = 0; i < all.size(); ++i)
        QTest::newRow(all.at(i).first) << i;
}

void TestStoreReads::eachReadFindsEverythingOrFails()
{
    QFETCH(int, number);
    addPlans(40);
    QVERIFY(InstructionIssuer::issueDay(SampleSession::today()));
    QCOMPARE(StoreReads::addContents(), Status());
    const StoreReads::Read read = StoreReads::all().at(number).second;
    const StoreReads::Answer sound = read();
    QCOMPARE(sound.status(), Status());
    QVERIFY(!sound->isEmpty());
    int failures = 0;
    int answers = 0;
    int complete = 0;
    for (int nth = 1; nth < MostReads; ++nth) {
        forgetPages();
        FaultyDisk::failAt(nth, Fault::InputOutput, Lasting::Once, Operation::Read);
        const StoreReads::Answer answer = read();
        const bool failed = FaultyDisk::hasFailed();
        FaultyDisk::heal();
        answers += answer ? 1 : 0;
        complete += answer && *answer == *sound ? 1 : 0;
        if (answer)
            QCOMPARE(*answer, *sound);
        else
            QCOMPARE(answer.status().error(), Error::DiskFailed);
        QCOMPARE(bool(answer), !failed);
        failures += failed ? 1 : 0;
        if (!failed)
            break;
    }
    QVERIFY(failures > 0);
    reportFaults(QStringLiteral("reads, ") + QString::fromLatin1(QTest::currentDataTag()), failures + answers, answers,
        complete, answers - complete);
    const StoreReads::Answer again = read();
    QCOMPARE(again.status(), Status());
    QCOMPARE(*again, *sound);
}

void TestStoreReads::aLoginThatCannotReadLeavesTheSessionClosed()
{
    const int property = client().accounts().ruleProperty(QStringLiteral("100002"), InstructionType::Ordinary);
    const int accounts = client().accounts().accounts().size();
    QVERIFY(property != 0);
    client().close();
    int refused = 0;
    bool failed = true;
    for (int nth = 1; failed && nth < MostReads; ++nth) {
        FaultyDisk::failAt(nth, Fault::InputOutput, Lasting::Once, Operation::Read);
        const Status opened = client().open(m_session->file(), QStringLiteral("trader01"));
        failed = FaultyDisk::hasFailed();
        FaultyDisk::heal();
        QCOMPARE(client().isOpen(), bool(opened));
        if (opened) {
            QCOMPARE(client().accounts().accounts().size(), accounts);
            QCOMPARE(client().accounts().ruleProperty(QStringLiteral("100002"), InstructionType::Ordinary), property);
            QCOMPARE(client().market().count(), 200);
        } else {
            ++refused;
            QCOMPARE(client().accounts().accounts().size(), 0);
        }
        client().close();
    }
    QVERIFY(!failed);
    QVERIFY2(refused > 10, qPrintable(QString::number(refused)));
    QCOMPARE(client().open(m_session->file(), QStringLiteral("trader01")), Status());
    QCOMPARE(*client().plans().count(), 1);
}

void TestStoreReads::aMissingTableStopsWhatNeedsIt_data()
{
    QTest::addColumn<QString>("table");
    for (const char* const table : { "users", "user_accounts", "exchange_accounts", "order_authorities",
             "rule_properties", "approval_chains", "chain_users", "closing_prices" })
        QTest::newRow(table) << QString::fromLatin1(table);
}

void TestStoreReads::aMissingTableStopsWhatNeedsIt()
{
    QFETCH(QString, table);
    QCOMPARE(client().database().configure(QStringLiteral("PRAGMA foreign_keys = OFF")), Status());
    QCOMPARE(client().database().execute(QStringLiteral("DROP TABLE ") + table), Status());
    const Status opened = m_session->reopen();
    QCOMPARE(opened,
        Status(Error::CannotOpenDatabase, { m_session->file() },
            { Error::MissingObject, { QStringLiteral("表"), table } }));
    QVERIFY(!client().isOpen());
}

void TestStoreReads::aServiceThatCannotReadRefusesAndReports()
{
    QCOMPARE(m_session->reopen(), Status());
    const QStringList tables{ QStringLiteral("signatures"), QStringLiteral("strategy_lists"),
        QStringLiteral("static_texts"), QStringLiteral("positions"), QStringLiteral("instructions") };
    QCOMPARE(client().database().configure(QStringLiteral("PRAGMA foreign_keys = OFF")), Status());
    for (const QString& table : tables)
        QCOMPARE(client().database().execute(QStringLiteral("ALTER TABLE %1 RENAME TO gone_%1").arg(table)), Status());
    m_log->expectWarning(QStringLiteral("数据库操作失败"), 6);
    QList<Status> reported;
    const auto connection = connect(
        &PlanEvents::instance(), &PlanEvents::readFailed, [&reported](const Status& failure) { reported << failure; });
    using Rules = InstructionBusinessDataInterface;
    // All clients count as unsigned, no strategy is offered, no default text and no holdings are answered.
    QCOMPARE(AgreementDC::instance().GetUnsignedClientNoList(Orlo_Values::ProtocolId::AutoPlanReduceAgree),
        client().accounts().clientNumbers());
    QCOMPARE(Rules::getWhiteAlgoNameList(
                 InstructionType::HkConnect, InstructionTargetType::QtyOrder, QStringLiteral("600000.SH")),
        QStringList{ QString() });
    QCOMPARE(Rules::getBlackAlgoNameList(InstructionTargetType::AmountOrder), StrategyLibrary::instance().names());
    QCOMPARE(CDataBase::GetInstance()->GetStaticCfgValue(
                 QStringLiteral("c"), QStringLiteral("k"), QStringLiteral("default")),
        QString());
    tagUserAccountInfo account;
    account.tradingAccount = Account;
    QVERIFY(BusinessDataInterface::GetPositionListByAccount(
        account, QString(), QStringLiteral("600000.SH"), QString(), QString(), QString(), QString())
                .isEmpty());
    QVERIFY(AutoPlanLogic::instance().GetPlanInstruction(QStringLiteral("AP00000001")).isEmpty());
    disconnect(connection);
    QCOMPARE(reported.size(), 6);
    for (const Status& failure : qAsConst(reported))
        QCOMPARE(failure.error(), Error::DatabaseFailed);
}

void TestStoreReads::aChangeThatCannotReadTheInstructionsIsRefused()
{
    QMap<QString, QVariant> record = SampleSession::record();
    record.insert(AutoPlanField::BaseField::autoPlanId, QStringLiteral("AP00000001"));
    QCOMPARE(client().database().execute(QStringLiteral("ALTER TABLE instructions RENAME TO gone")), Status());
    const QString reason = AutoPlanLogic::instance().modifyPlan(record);
    QVERIFY2(reason.startsWith(QStringLiteral("数据库操作失败")), qPrintable(reason));
    QCOMPARE(client().plans().plan(QStringLiteral("AP00000001"))->version, 1);
}

void TestStoreReads::aDayWhoseReadsFailIsIssuedWholeOrNotAtAll()
{
    constexpr int Plans = 60;
    addPlans(Plans - 1);
    // A small cache, so that reads reach the disk and changed pages leave the cache before the end.
    QCOMPARE(client().database().configure(QStringLiteral("PRAGMA cache_size = 5")), Status());
    int refused = 0;
    int issued = 0;
    const int stride = setting("FAULTS_EVERY", 7);
    for (int nth = 1;; nth += nth < 30 ? 1 : stride) {
        forgetPages();
        FaultyDisk::failAt(nth, Fault::InputOutput, Lasting::Once, Operation::Read);
        const auto result = InstructionIssuer::issueDay(SampleSession::today());
        const bool failed = FaultyDisk::hasFailed();
        FaultyDisk::heal();
        QCOMPARE(instructionCount(), result ? Plans : 0);
        if (result) {
            QVERIFY(!failed);
            issued = result->issued.size();
            QCOMPARE(issued, Plans);
            break;
        }
        // A read that fails while pages leave the cache ends the transaction in a statement that reports success.
        const Error error = result.status().error();
        QVERIFY(error == Error::DiskFailed || error == Error::TransactionEnded);
        ++refused;
    }
    QVERIFY(refused > 20);
    const int stored = instructionCount();
    reportFaults(QStringLiteral("days, each read fails"), Plans * (refused + 1), issued, stored, issued - stored);
}

void TestStoreReads::aDayOnAFailingDiskIsIssuedInWholeParts_data()
{
    QTest::addColumn<Fault>("fault");
    QTest::addColumn<Lasting>("lasting");
    QTest::newRow("disk full for good") << Fault::Full << Lasting::ForGood;
    QTest::newRow("disk full once") << Fault::Full << Lasting::Once;
    QTest::newRow("write error for good") << Fault::InputOutput << Lasting::ForGood;
    QTest::newRow("write error once") << Fault::InputOutput << Lasting::Once;
}

void TestStoreReads::aDayOnAFailingDiskIsIssuedInWholeParts()
{
    QFETCH(Fault, fault);
    QFETCH(Lasting, lasting);
    constexpr int Part = 500;
    const int plans = setting("FAULTS_PLANS", 600);
    QVERIFY(plans > Part);
    addPlans(plans - 1);
    QCOMPARE(client().database().configure(QStringLiteral("PRAGMA cache_size = 5")), Status());
    int refused = 0;
    int issued = 0;
    const int stride = setting("FAULTS_DAY_EVERY", 499);
    for (int nth = 1;; nth += nth < 12 ? 1 : stride) {
        FaultyDisk::failAt(nth, fault, lasting);
        const auto result = InstructionIssuer::issueDay(SampleSession::today());
        const bool failed = FaultyDisk::hasFailed();
        FaultyDisk::heal();
        issued += result ? result->issued.size() : 0;
        QCOMPARE(instructionCount(), issued);
        QVERIFY(issued % Part == 0 || issued == plans);
        const Status status = result ? result->failure : result.status();
        QCOMPARE(bool(status), issued == plans);
        // A checkpoint after a commit may fail, which harms nothing.
        if (status)
            break;
        QVERIFY(failed);
        QCOMPARE(status.error(), fault == Fault::Full ? Error::DiskFull : Error::DiskFailed);
        ++refused;
    }
    QVERIFY2(refused > 12, qPrintable(QString::number(refused)));
    QCOMPARE(m_session->reopen(), Status());
    const int stored = instructionCount();
    reportFaults(QStringLiteral("days, ") + QString::fromLatin1(QTest::currentDataTag()), plans * (refused + 1), issued,
        stored, issued - stored);
    QCOMPARE(stored, plans);
}

void TestStoreReads::damageIsReportedAfterTheStart()
{
    constexpr int PageSize = 4096;
    addPlans(200);
    client().close();
    QFile file(m_session->file());
    QVERIFY(file.open(QIODevice::ReadWrite));
    // A page of plans in the middle, which the start does not read.
    const int page = file.readAll().lastIndexOf("planOtherParam") / PageSize - 5;
    QVERIFY(page > 0 && file.seek(page * PageSize));
    QCOMPARE(file.write(QByteArray(PageSize, '\x5a')), qint64(PageSize));
    file.close();
    m_log->expectWarning(errorText(Error::DatabaseCorrupt), 1);
    QList<Status> reported;
    const auto connection = connect(
        &PlanEvents::instance(), &PlanEvents::readFailed, [&reported](const Status& failure) { reported << failure; });
    QCOMPARE(m_session->reopen(), Status());
    QTRY_COMPARE(reported.size(), 1);
    disconnect(connection);
    QCOMPARE(reported.constFirst(), Status(Error::DatabaseCorrupt));
}

void TestStoreReads::aThreadCreatesNoFile()
{
    const QString missing = m_session->file() + QStringLiteral(".missing");
    Database session;
    QCOMPARE(session.open(missing), Status());
    QVERIFY(QFile::remove(missing));
    Status status;
    QSemaphore done;
    DatabaseThread thread(QStringLiteral("missing"), session);
    thread.run([&status, &done](Database&, const Status& opened) {
        status = opened;
        done.release();
    });
    done.acquire();
    QCOMPARE(status, Status(Error::CannotOpenDatabase, { missing }, Error::DatabaseFileChanged));
    QVERIFY(!QFile::exists(missing));
}

void TestStoreReads::anEndlessReadEndsWithItsThread()
{
    Status status;
    QSemaphore started;
    {
        DatabaseThread thread(QStringLiteral("endless"), ClientSession::instance().database());
        thread.run([&status, &started](Database& database, const Status& opened) {
            started.release();
            status = opened ? database
                                  .value(QStringLiteral("WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL"
                                                        " SELECT i + 1 FROM n) SELECT max(i) FROM n"))
                                  .status()
                            : opened;
        });
        started.acquire();
    }
    QCOMPARE(status.error(), Error::DatabaseFailed);
}

void TestStoreReads::aFaultInTheLocksOfTheLogIsReportedWithinASecond_data()
{
    QTest::addColumn<Fault>("fault");
    QTest::addColumn<Lasting>("lasting");
    QTest::newRow("lock error once") << Fault::InputOutput << Lasting::Once;
    QTest::newRow("lock error for good") << Fault::InputOutput << Lasting::ForGood;
    QTest::newRow("lock taken once") << Fault::Taken << Lasting::Once;
    QTest::newRow("lock taken for good") << Fault::Taken << Lasting::ForGood;
}

void TestStoreReads::aFaultInTheLocksOfTheLogIsReportedWithinASecond()
{
    QFETCH(Fault, fault);
    QFETCH(Lasting, lasting);
    const QMap<QString, QVariant> record = SampleSession::record();
    for (int nth = 1; nth < 10; ++nth) {
        FaultyDisk::failAt(nth, fault, lasting, Operation::Lock);
        QElapsedTimer clock;
        clock.start();
        const QString reason = AutoPlanLogic::instance().CreateNewPlan(record);
        const qint64 elapsed = clock.elapsed();
        const bool failed = FaultyDisk::hasFailed();
        FaultyDisk::heal();
        QVERIFY2(elapsed < LongestWait, qPrintable(QStringLiteral("%1 ms: %2").arg(elapsed).arg(reason)));
        QVERIFY2(reason.isEmpty() || reason.contains(QStringLiteral("数据库")), qPrintable(reason));
        QCOMPARE(AutoPlanLogic::instance().CreateNewPlan(record), QString());
        if (!failed)
            break;
    }
}

QTEST_GUILESS_MAIN(TestStoreReads)
#include "tst_store_reads.moc"
