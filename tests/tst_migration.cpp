#include "AgreementStore.h"
#include "FaultCount.h"
#include "FaultyDisk.h"
#include "InstructionStore.h"
#include "LimitStore.h"
#include "PlanCodes.h"
#include "PlanLedger.h"
#include "PlanStore.h"
#include "PositionStore.h"
#include "RawFile.h"
#include "SecurityStore.h"
#include "SqliteSchema.h"
#include "TestStatus.h"
#include "WriterProcess.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>

using FaultyDisk::Fault;
using FaultyDisk::Lasting;
using namespace PlanCodes;

Q_DECLARE_METATYPE(FaultyDisk::Fault)
Q_DECLARE_METATYPE(FaultyDisk::Lasting)

namespace {

// The last version with a row for each field.
constexpr int LastOldVersion = 4;
constexpr int FieldsOfPlan = 11;
constexpr int FieldsOfInstruction = 8;
const QDateTime Created(QDate(2024, 5, 6), QTime(0, 30, 0, 125));
// What JSON escapes, more than the basic plane, and a byte order mark inside.
const QString Remark = QStringLiteral("“a” \\ \"b\" / \n\t%1 \u2028 \U0001F600 \uFEFF\u007F").arg(QChar(1));

bool addInstructions(RawFile& file, int count)
{
    return file.run(QStringLiteral("INSERT INTO plan_instructions WITH RECURSIVE n (n) AS (SELECT 1 UNION ALL"
                                   " SELECT n + 1 FROM n WHERE n < %1),"
                                   " i (id, day) AS (VALUES ('-000001', '2024-05-06'), ('-000003', '2024-05-07'))"
                                   " SELECT n, printf('AP%08d', n) || id, day FROM n, i")
                        .arg(count))
        && file.run(QStringLiteral(
            "INSERT INTO instruction_fields WITH f (key, value) AS (VALUES ('75', ''), ('12013', '1'), ('57134', 'Q'),"
            " ('44', '0.050'), ('38', '1000'), ('14', '300'), ('217201', '10050.00'), ('cumAmount', '0.29'))"
            " SELECT plan, id, key, CASE key WHEN '75' THEN day ELSE value END FROM plan_instructions, f"));
}

bool addPlans(RawFile& file, int count, int version)
{
    const QString numbers =
        QStringLiteral("WITH RECURSIVE n (n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM n WHERE n < %1) ").arg(count);
    const QString fields = QStringLiteral(
        "('templateCode', 'TW-01'), ('subType', '1'), ('tradingAccount', '100001'), ('symbol', '600000.SH'),"
        " ('orderSide', '1'), ('beginDate', '2024-05-06'), ('endDate', '2024-05-10'), ('expectedUser', '程澜'),"
        " ('remark', ?), ('totalQty', '1000'), ('priceFormula2', '')");
    bool done =
        file.run(QStringLiteral("INSERT INTO plans (number, version, creator, created_time, other_param) ") + numbers
            + QStringLiteral("SELECT n, 2, 'trader01', '2024-05-06T00:30:00.125', '{\"57134\":\"x\"}' FROM n"))
        && file.run(QStringLiteral("INSERT INTO plan_fields ") + numbers
                + QStringLiteral(", f (key, value) AS (VALUES %1) SELECT n, key, value FROM n, f").arg(fields),
            { Remark })
        && addInstructions(file, count);
    if (version > 1)
        done = done && file.run(QStringLiteral("UPDATE plans SET changed_time = '2024-05-06T23:59:59.999'"));
    return done;
}

/// Creates a file with the tables of a version, one row of what plans refer to, and plans with two instructions each.
bool makeOld(const QString& fileName, int plans, int version = LastOldVersion)
{
    RawFile file(fileName);
    QStringList statements{ QStringLiteral("PRAGMA journal_mode = WAL"), QStringLiteral("BEGIN") };
    for (const Migration& migration : SqliteSchema::migrations()) {
        if (migration.version <= version)
            statements += migration.statements;
    }
    statements += QStringList{ QStringLiteral("INSERT INTO users VALUES ('trader01', 'name')"),
        QStringLiteral("INSERT INTO accounts VALUES ('100001', 'F1', 'name', 'C1', 'ordinary', 'B1')"),
        QStringLiteral("INSERT INTO user_accounts VALUES ('trader01', '100001', 0)"),
        QStringLiteral("INSERT INTO securities VALUES (1, '600000.SH', 'n', 't', 's', 'e', 2, 1, 100, 100, '', '')"),
        QStringLiteral("INSERT INTO closing_prices VALUES (1, '2024-04-30', 100, x'c801')"),
        QStringLiteral("INSERT INTO positions VALUES ('100001', 'A1', '600000.SH', 300, 200)"),
        QStringLiteral("INSERT INTO agreements VALUES ('p', 'title', 'content')"),
        QStringLiteral("INSERT INTO signatures VALUES ('p', 'C1', 'trader01', '2024-05-06T00:30:00.125')"),
        QStringLiteral("PRAGMA application_id = %1").arg(SqliteSchema::applicationId()),
        QStringLiteral("PRAGMA user_version = %1").arg(version) };
    bool done = true;
    for (const QString& statement : qAsConst(statements))
        done = done && file.run(statement);
    return done && (plans == 0 || addPlans(file, plans, version)) && file.run(QStringLiteral("COMMIT"));
}

/// Whether the file has the tables and the plans of the old version.
bool isOld(const QString& fileName, int plans)
{
    RawFile file(fileName);
    const auto is = [&file](const char* query, int number) {
        return file.value(QString::fromLatin1(query)) == QString::number(number);
    };
    return is("PRAGMA user_version", LastOldVersion) && is("SELECT count(*) FROM plan_fields", FieldsOfPlan * plans)
        && is("SELECT count(*) FROM instruction_fields", 2 * FieldsOfInstruction * plans)
        && is("SELECT count(*) FROM sqlite_master WHERE name LIKE 'old%'", 0);
}

PlanStore::Record recordOfPlan()
{
    const auto text = [](const char* latin) { return QString::fromLatin1(latin); };
    return { { text("templateCode"), text("TW-01") }, { text("subType"), text("1") },
        { text("tradingAccount"), text("100001") }, { text("symbol"), text("600000.SH") },
        { text("orderSide"), text("1") }, { text("beginDate"), text("2024-05-06") },
        { text("endDate"), text("2024-05-10") }, { text("expectedUser"), QStringLiteral("程澜") },
        { text("remark"), Remark }, { text("totalQty"), text("1000") }, { text("priceFormula2"), text("") },
        { text("planOtherParam"), text("{\"57134\":\"x\"}") } };
}

InstructionStore::Fields instructionOf(const QString& day)
{
    return { { FieldId::TradeDate, day }, { FieldId::EndState, EndState::Ended },
        { FieldId::TargetType, QStringLiteral("Q") }, { FieldId::Price, QStringLiteral("0.050") },
        { FieldId::IssuedQty, QStringLiteral("1000") }, { FieldId::FilledQty, QStringLiteral("300") },
        { FieldId::IssuedAmount, QStringLiteral("10050.00") },
        { QStringLiteral("cumAmount"), QStringLiteral("0.29") } };
}

/// Empty if the opened file has the plans of `makeOld`; `changed` is the time of their last change.
QString difference(
    Database& database, int plans, const QDateTime& changed = Created.addSecs(84599).addMSecs(-125 + 999))
{
    PlanStore store(database);
    if (store.count().valueOr(-1) != plans)
        return QStringLiteral("%1 plans").arg(store.count().valueOr(-1));
    for (int number = 1; number <= plans; number += qMax(1, plans / 7)) {
        const QString id = PlanId::fromNumber(number);
        const auto plan = store.plan(id);
        if (!plan || plan->record != recordOfPlan() || plan->version != 2 || plan->state != PlanState::Active
            || plan->creator != QLatin1String("trader01") || plan->created != Created || plan->changed != changed)
            return id;
        const QMap<QString, InstructionStore::Fields> expected{ { id + QStringLiteral("-000001"),
                                                                    instructionOf(QStringLiteral("2024-05-06")) },
            { id + QStringLiteral("-000003"), instructionOf(QStringLiteral("2024-05-07")) } };
        const auto instructions = InstructionStore(database).ofPlan(id);
        if (!instructions || *instructions != expected)
            return id + QStringLiteral(" instructions");
    }
    return QString();
}

} // namespace

/// Files with a row for each field. They are migrated whole or stay as they are.
class MigrationTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { FaultyDisk::install(); }
    void init();
    void cleanup() { FaultyDisk::heal(); }

    void everyPlanIsMigrated_data();
    void everyPlanIsMigrated();
    void aNumberIsNotUsedAgainAfterAMigration_data();
    void aNumberIsNotUsedAgainAfterAMigration();
    void otherDataAreMigrated();
    void aFileThatCannotBeMigratedStaysAsItIs_data();
    void aFileThatCannotBeMigratedStaysAsItIs();
    void eachWriteOfAMigrationFailsInTurn_data();
    void eachWriteOfAMigrationFailsInTurn();
    void aKilledMigrationIsRepeated();
    void theTablesRefuseWhatCannotBe_data();
    void theTablesRefuseWhatCannotBe();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
    FaultCount m_whole{ QStringLiteral("migrations") };
    FaultCount m_refused{ QStringLiteral("files that cannot be migrated") };
};

void MigrationTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_file = m_folder->filePath(QStringLiteral("plans.db"));
}

void MigrationTest::everyPlanIsMigrated_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<int>("plans");
    for (int version = 1; version <= LastOldVersion; ++version) {
        QTest::addRow("version %d without a plan", version) << version << 0;
        QTest::addRow("version %d with one plan", version) << version << 1;
    }
    QTest::newRow("many plans") << LastOldVersion << setting("FAULTS_MIGRATED_PLANS", 10000);
}

void MigrationTest::everyPlanIsMigrated()
{
    QFETCH(int, version);
    QFETCH(int, plans);
    QVERIFY(makeOld(m_file, plans, version));
    QElapsedTimer clock;
    clock.start();
    Database database;
    QCOMPARE(database.open(m_file), Status());
    std::printf("%d plans migrated in %lld ms\n", plans, clock.elapsed());
    const QString lost = version == 1 ? difference(database, plans, Created) : difference(database, plans);
    m_whole.addFile(lost.isEmpty());
    QCOMPARE(lost, QString());
    QCOMPARE(PlanStore(database).plansOfDay(QDate(2024, 5, 10))->due.size(), plans);
    QCOMPARE(database.value(QStringLiteral("SELECT count(*) FROM instructions"))->toInt(), 2 * plans);
    QCOMPARE(database.value(QStringLiteral("SELECT count(*) FROM pragma_foreign_key_check"))->toInt(), 0);
    QCOMPARE(database.value(QStringLiteral("PRAGMA integrity_check"))->toString(), QStringLiteral("ok"));
    QCOMPARE(database.value(QStringLiteral("SELECT count(*) FROM sqlite_master WHERE name LIKE 'old%'"))->toInt(), 0);
}

void MigrationTest::aNumberIsNotUsedAgainAfterAMigration_data()
{
    QTest::addColumn<int>("first");
    QTest::newRow("the last plans are gone") << 3;
    QTest::newRow("all plans are gone") << 1;
}

void MigrationTest::aNumberIsNotUsedAgainAfterAMigration()
{
    QFETCH(int, first);
    QVERIFY(makeOld(m_file, 5));
    const QStringList tables{ QStringLiteral("instruction_fields WHERE plan"),
        QStringLiteral("plan_instructions WHERE plan"), QStringLiteral("plan_fields WHERE plan"),
        QStringLiteral("plans WHERE number") };
    for (const QString& table : tables)
        QVERIFY(RawFile(m_file).run(QStringLiteral("DELETE FROM %1 >= %2").arg(table).arg(first)));
    Database database;
    QCOMPARE(database.open(m_file), Status());
    const PlanStore::Record record{ { QStringLiteral("remark"), QStringLiteral("new") } };
    QCOMPARE(*PlanStore(database).create(record, { QStringLiteral("trader01"), Created }), PlanId::fromNumber(6));
}

void MigrationTest::otherDataAreMigrated()
{
    QVERIFY(makeOld(m_file, 1));
    QVERIFY(
        RawFile(m_file).run(QStringLiteral("INSERT INTO limit_exceptions VALUES (7, '100001', 5, NULL, 600, 'trader01',"
                                           " '2024-05-06T01:30:00.125Z', '2024-05-10', 'reason')")));
    Database database;
    QCOMPARE(database.open(m_file), Status());
    QCOMPARE(*AgreementStore(database).signedTime(QStringLiteral("p"), QStringLiteral("C1")), Created);
    QCOMPARE(SecurityStore(database).closes(QStringLiteral("600000.SH"))->ticks, QVector<qint64>{ 100 });
    QCOMPARE(PositionStore(database)
                 .positions(QStringLiteral("100001"), QString(), QStringLiteral("600000.SH"), QDate(2024, 5, 6))
                 ->constFirst()
                 .tradeableQuantity,
        qint64(200));
    AccountLimits limits;
    ValueReader reader(database);
    LimitStore::addTo(reader, QStringLiteral("100001"), QStringLiteral("trader02"), QDate(2024, 5, 10), limits);
    QCOMPARE(reader.read(), Status());
    QCOMPARE(limits.priceBandPerMille.value_or(0), qint64(600));
    const auto text = [&database](const char* query) { return database.value(QString::fromLatin1(query))->toString(); };
    QCOMPARE(text("SELECT created_time FROM plans"), QStringLiteral("2024-05-05T16:30:00.125Z"));
    QCOMPARE(text("SELECT changed_time FROM plans"), QStringLiteral("2024-05-06T15:59:59.999Z"));
    QCOMPARE(text("SELECT authorised_time FROM limit_exceptions"), QStringLiteral("2024-05-06T01:30:00.125Z"));
    QCOMPARE(text("SELECT seq FROM sqlite_sequence WHERE name = 'limit_exceptions'"), QStringLiteral("7"));
    QCOMPARE(text("SELECT price_ticks || '/' || price_decimals || '/' || filled_fen FROM instructions"),
        QStringLiteral("50/3/29"));
}

void MigrationTest::aFileThatCannotBeMigratedStaysAsItIs_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const char* change, const QString& reason) {
        QTest::newRow(name) << QString::fromLatin1(change) << reason;
    };
    row("an unknown account", "UPDATE plan_fields SET value = '9' WHERE key = 'tradingAccount' AND plan = 2",
        QStringLiteral("计划“AP00000002”的账户“9”不存在"));
    row("an unknown security", "UPDATE plan_fields SET value = 'x' WHERE key = 'symbol' AND plan = 3",
        QStringLiteral("计划“AP00000003”的证券“x”不存在"));
    row("an unknown creator", "UPDATE plans SET creator = 'nobody'",
        QStringLiteral("计划“AP00000001”的创建人“nobody”不存在"));
    row("a date that there is not", "UPDATE plan_fields SET value = '2024-06-31' WHERE key = 'endDate'",
        QStringLiteral("计划“AP00000001”的结束日期“2024-06-31”无效"));
    row("a date in words", "UPDATE plan_fields SET value = 'noon' WHERE key = 'beginDate'",
        QStringLiteral("计划“AP00000001”的开始日期“noon”无效"));
    row("an end before the beginning", "UPDATE plan_fields SET value = '2024-05-05' WHERE key = 'endDate'",
        QStringLiteral("计划“AP00000001”的结束日期“2024-05-05”无效"));
    row("a time that there is not", "UPDATE plans SET changed_time = 'noon' WHERE number = 2",
        QStringLiteral("计划“AP00000002”的修改时间“noon”无效"));
    const auto instruction = [](const char* what) {
        return QStringLiteral("指令AP00000001-000001的内容“%1”无效").arg(QString::fromLatin1(what));
    };
    row("a negative quantity", "UPDATE instruction_fields SET value = '-1' WHERE key = '14'", instruction("14 -1"));
    row("a quantity with an exponent", "UPDATE instruction_fields SET value = '1e3' WHERE key = '38'",
        instruction("38 1e3"));
    row("a tenth of a fen", "UPDATE instruction_fields SET value = '0.295' WHERE key = 'cumAmount'",
        instruction("cumAmount 0.295"));
    row("a price without an integer part", "UPDATE instruction_fields SET value = '.05' WHERE key = '44'",
        instruction("44 .05"));
    row("half ended", "UPDATE instruction_fields SET value = '2' WHERE key = '12013'", instruction("12013 2"));
    row("another day", "UPDATE instruction_fields SET value = '2024-05-08' WHERE key = '75'",
        instruction("75 2024-05-08"));
    row("an unknown field", "UPDATE instruction_fields SET key = '76' WHERE key = '75'", instruction("76 2024-05-06"));
    row("a precision out of range", "UPDATE securities SET price_precision = 99",
        QStringLiteral("证券“600000.SH”的价格精度、数量系数、步长或涨跌幅超出范围"));
    row("a negative position", "UPDATE positions SET quantity = -1",
        QStringLiteral("账户“100001”的证券“600000.SH”的持仓无效"));
    row("a time that looks like a day number", "UPDATE plans SET changed_time = '2460000'",
        QStringLiteral("计划“AP00000001”的修改时间“2460000”无效"));
    row("a position of an unknown account", "UPDATE positions SET trading_account = '9'",
        QStringLiteral("账户“9”的证券“600000.SH”的持仓无效"));
    const QString closes = QStringLiteral("证券“600000.SH”的收盘价已损坏");
    row("a day of closes that there is not", "UPDATE closing_prices SET last_day = '2024-04-31'", closes);
    row("a close below zero", "UPDATE closing_prices SET last_close = -1", closes);
    row("closes of no security", "UPDATE closing_prices SET security = 7", QStringLiteral("证券“7”的收盘价已损坏"));
    const QString signature = QStringLiteral("客户“C1”对协议“p”的签署无效");
    row("a signature at a time in words", "UPDATE signatures SET signed_time = 'noon'", signature);
    row("a signature on a day without a time", "UPDATE signatures SET signed_time = '2024-05-06'", signature);
    row("a signature at a time that there is not", "UPDATE signatures SET signed_time = '2024-02-30T10:30:00.000'",
        signature);
    row("a signature of an unknown agreement", "UPDATE signatures SET protocol = 'q'",
        QStringLiteral("客户“C1”对协议“q”的签署无效"));
    const auto limit = [&row](const char* name, const char* values, const char* account = "100001") {
        const QByteArray insert = QByteArray("INSERT INTO limit_exceptions VALUES (7, '") + account
            + "', 5, NULL, 600, " + values + ", 'reason')";
        row(name, insert.constData(), QStringLiteral("账户“%1”的限额例外7无效").arg(QString::fromLatin1(account)));
    };
    limit("an exception authorised at a time in words", "'trader01', 'noon', '2024-05-10'");
    limit("an exception authorised at no time of UTC", "'trader01', '2024-05-06T01:30:00.125', '2024-05-10'");
    limit("an exception until a day that there is not", "'trader01', '2024-05-06T01:30:00.125Z', '2024-06-31'");
    limit("an exception by an unknown user", "'nobody', '2024-05-06T01:30:00.125Z', '2024-05-10'");
    limit("an exception of an unknown account", "'trader01', '2024-05-06T01:30:00.125Z', '2024-05-10'", "9");
}

void MigrationTest::aFileThatCannotBeMigratedStaysAsItIs()
{
    QFETCH(QString, change);
    QFETCH(QString, reason);
    QVERIFY(makeOld(m_file, 3));
    QVERIFY(RawFile(m_file).run(change));
    Database database;
    const Status status = database.open(m_file);
    QCOMPARE(status.error(), Error::CannotOpenDatabase);
    QCOMPARE(status.cause().error(), Error::MigrationFailed);
    QVERIFY2(errorText(status).contains(QStringLiteral("升级数据库失败，") + reason), qPrintable(errorText(status)));
    const bool isUnchanged = isOld(m_file, 3);
    m_refused.addFile(isUnchanged);
    QVERIFY(isUnchanged);
}

void MigrationTest::eachWriteOfAMigrationFailsInTurn_data()
{
    QTest::addColumn<Fault>("fault");
    QTest::addColumn<Lasting>("lasting");
    QTest::newRow("write error once") << Fault::InputOutput << Lasting::Once;
    QTest::newRow("disk full once") << Fault::Full << Lasting::Once;
    QTest::newRow("disk full for good") << Fault::Full << Lasting::ForGood;
}

void MigrationTest::eachWriteOfAMigrationFailsInTurn()
{
    QFETCH(Fault, fault);
    QFETCH(Lasting, lasting);
    constexpr int Plans = 200;
    QVERIFY(makeOld(m_file, Plans));
    const QString copy = m_folder->filePath(QStringLiteral("copy.db"));
    const int stride = setting("FAULTS_EVERY", 47);
    int refused = 0;
    bool failed = true;
    const QString name = QStringLiteral("migrations, ") + QString::fromLatin1(QTest::currentDataTag());
    FaultCount count(name);
    for (int nth = 1; failed; nth += nth < 12 ? 1 : stride) {
        for (const char* const end : { "", "-wal", "-shm" })
            QFile::remove(copy + QLatin1String(end));
        QVERIFY(QFile::copy(m_file, copy));
        FaultyDisk::failAt(nth, fault, lasting);
        Database database;
        const Status status = database.open(copy);
        failed = FaultyDisk::hasFailed();
        database.close();
        FaultyDisk::heal();
        QVERIFY(status || isOld(copy, Plans));
        refused += status ? 0 : 1;
        QCOMPARE(database.open(copy), Status());
        const QString lost = difference(database, Plans);
        count.addFile(lost.isEmpty());
        QCOMPARE(lost, QString());
    }
    QVERIFY2(refused > 12, qPrintable(QString::number(refused)));
    count.setName(QStringLiteral("%1, %2 refused").arg(name).arg(refused));
}

// The kills are spread over the time that a whole migration takes.
void MigrationTest::aKilledMigrationIsRepeated()
{
    constexpr int Plans = 5000;
    const int kills = setting("FAULTS_KILLS", 6);
    const QString copy = m_folder->filePath(QStringLiteral("copy.db"));
    QVERIFY(makeOld(m_file, Plans));
    QVERIFY(QFile::copy(m_file, copy));
    QElapsedTimer clock;
    clock.start();
    WriterProcess whole;
    QVERIFY(whole.start(copy, { QStringLiteral("lock") }));
    QVERIFY(whole.release());
    const qint64 duration = clock.nsecsElapsed() / 1000;
    int begun = 0;
    FaultCount count(QStringLiteral("migrations that are killed"));
    for (int i = 0; i < kills; ++i) {
        for (const char* const end : { "", "-wal", "-shm" })
            QFile::remove(copy + QLatin1String(end));
        QVERIFY(QFile::copy(m_file, copy));
        WriterProcess client;
        QVERIFY(client.launch(copy, { QStringLiteral("lock") }));
        client.killAfter(duration * (i + 1) / (kills + 1));
        const bool hasWritten = QFileInfo(copy + QStringLiteral("-wal")).size() > 0;
        begun += isOld(copy, Plans) && hasWritten ? 1 : 0;
        Database database;
        QCOMPARE(database.open(copy), Status());
        const QString lost = difference(database, Plans);
        count.addFile(lost.isEmpty());
        QCOMPARE(lost, QString());
    }
    count.setName(
        QStringLiteral("migrations that are killed, %1 after the first write and before the last").arg(begun));
    QVERIFY(begun > 0);
}

void MigrationTest::theTablesRefuseWhatCannotBe_data()
{
    QTest::addColumn<QString>("statement");
    const auto row = [](const char* name, const char* statement) {
        QTest::newRow(name) << QString::fromLatin1(statement);
    };
    row("a plan without a version", "UPDATE plans SET version = 0");
    row("a plan in no state", "UPDATE plans SET state = 'deleted'");
    row("a plan that ends before it begins", "UPDATE plans SET end_date = '2024-05-05'");
    row("a plan that begins on no date", "UPDATE plans SET begin_date = '2024-02-31'");
    row("a plan that begins at a time", "UPDATE plans SET begin_date = '2024-05-06T00:00'");
    row("a plan of an unknown security", "UPDATE plans SET symbol = 'x'");
    row("a plan of an unknown account", "UPDATE plans SET trading_account = 'x'");
    row("a plan of an unknown creator", "UPDATE plans SET creator = 'x'");
    row("a plan whose fields are a text", "UPDATE plans SET fields = 'remark'");
    row("a plan whose fields are a list", "UPDATE plans SET fields = '[]'");
    row("a plan with a local time", "UPDATE plans SET changed_time = '2024-05-06T09:30:00.125'");
    row("a plan with a time on no date", "UPDATE plans SET created_time = '2024-02-31T01:30:00.125Z'");
    row("a plan with a time without seconds", "UPDATE plans SET created_time = '2024-05-06T09:30Z'");
    row("an instruction without a plan", "UPDATE instructions SET plan = 9");
    row("an instruction in position 0", "UPDATE instructions SET position = 0 WHERE position = 1");
    row("an instruction of no day", "UPDATE instructions SET day = '2024-05-32'");
    row("an instruction that is half ended", "UPDATE instructions SET ended = 2");
    row("an instruction with a text as its quantity", "UPDATE instructions SET issued_quantity = 'x'");
    row("an instruction with a negative quantity", "UPDATE instructions SET filled_quantity = -1");
    row("an instruction with a negative amount", "UPDATE instructions SET filled_fen = -1");
    row("an instruction with half a price", "UPDATE instructions SET price_decimals = NULL");
    row("a security without a factor", "UPDATE securities SET display_factor = 0");
    row("a security with a negative precision", "UPDATE securities SET price_precision = -1");
    row("a security with too many decimals", "UPDATE securities SET price_precision = 7");
    row("a security without a step", "UPDATE securities SET quantity_step = 0");
    row("a security that may move more than its price", "UPDATE securities SET limit_per_mille = 1001");
    row("closes of no day", "UPDATE closing_prices SET last_day = 'noon'");
    row("a negative close", "UPDATE closing_prices SET last_close = -1");
    row("a position of an unknown security", "UPDATE positions SET symbol = 'x'");
    row("a negative position", "UPDATE positions SET tradeable_quantity = -1");
    row("a signature with a local time", "UPDATE signatures SET signed_time = '2024-05-06T09:30:00.125'");
    row("a deleted security with plans", "DELETE FROM securities");
    row("a deleted account with plans", "DELETE FROM accounts");
}

void MigrationTest::theTablesRefuseWhatCannotBe()
{
    QFETCH(QString, statement);
    QVERIFY(makeOld(m_file, 1));
    Database database;
    QCOMPARE(database.open(m_file), Status());
    QCOMPARE(database.execute(statement).error(), Error::DatabaseFailed);
    QCOMPARE(difference(database, 1), QString());
}

QTEST_GUILESS_MAIN(MigrationTest)
#include "tst_migration.moc"
