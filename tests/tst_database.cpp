#include "AccountStore.h"
#include "AgreementStore.h"
#include "AuthorityStore.h"
#include "AutoPlanField.h"
#include "Database.h"
#include "FaultyDisk.h"
#include "InstructionStore.h"
#include "PlanLedger.h"
#include "PlanStore.h"
#include "RawFile.h"
#include "Schema.h"
#include "TestStatus.h"
#include "UserStore.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <unistd.h>

#include <memory>

Q_DECLARE_METATYPE(Error)
Q_DECLARE_METATYPE(FaultyDisk::Operation)

namespace {

const QString& OtherParamKey = AutoPlanField::BaseField::planOtherParam;
const QDateTime Morning(QDate(2024, 5, 6), QTime(9, 30, 0, 125));
const QDateTime Noon(QDate(2024, 5, 6), QTime(12, 0));
const Change AtMorning{ QStringLiteral("u"), Morning };
const Change AtNoon{ QStringLiteral("u"), Noon };

PlanStore::Record sampleRecord()
{
    return { { QStringLiteral("symbol"), QStringLiteral("600000.SH") },
        { QStringLiteral("remark"), QStringLiteral("分批买入 \"一\"; DROP TABLE plans") },
        { QStringLiteral("expectedUser"), QStringLiteral("") },
        { OtherParamKey, QStringLiteral("{\"JCRatio\":\"0.5\"}") } };
}

QByteArray contentOf(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeFile(const QString& fileName, const QByteArray& content)
{
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

Status cannotOpen(const QString& fileName, const Status& cause)
{
    return { Error::CannotOpenDatabase, { fileName }, cause };
}

/// Deletes, replaces, moves or links the file, or removes the companion with the ending.
void exchange(const QString& fileName, const QString& change)
{
    const QString other = QFileInfo(fileName).absolutePath() + QStringLiteral("/other.db");
    if (change == QLatin1String("link")) {
        QCOMPARE(::link(QFile::encodeName(fileName).constData(), QFile::encodeName(other).constData()), 0);
    } else if (change == QLatin1String("move")) {
        QVERIFY(QFile::rename(fileName, other));
    } else if (change.startsWith(QLatin1Char('-'))) {
        QVERIFY(QFile::remove(fileName + change));
    } else {
        QVERIFY(QFile::copy(fileName, other));
        QVERIFY(QFile::remove(fileName));
        QVERIFY(change == QLatin1String("delete") || QFile::rename(other, fileName));
    }
}

/// Statements that add what the plans of these tests refer to.
QStringList parents()
{
    return {
        QStringLiteral("INSERT INTO users VALUES ('u', 'u'), ('trader01', 't'), ('restored', 'r')"),
        QStringLiteral("INSERT INTO securities VALUES (1, '600000.SH', 'n', 't', 's', 'e', 2, 1, 100, 100, '', ''),"
                       " (2, '000001.SZ', 'n', 't', 's', 'e', 2, 1, 100, 100, '', '')"),
    };
}

bool makeVersionOne(const QString& fileName)
{
    RawFile raw(fileName);
    bool done = true;
    for (const QString& statement : Schema::migrations().constFirst().statements)
        done = done && raw.run(statement);
    for (const QString& statement : parents())
        done = done && raw.run(statement);
    return done && raw.run(QStringLiteral("PRAGMA application_id = %1").arg(Schema::applicationId()))
        && raw.run(QStringLiteral("PRAGMA user_version = 1"))
        && raw.run(QStringLiteral("INSERT INTO plans (version, creator, created_time, other_param)"
                                  " VALUES (3, 'trader01', '2023-12-01T10:00:00.000', '{}')"))
        && raw.run(QStringLiteral("INSERT INTO plan_fields VALUES (1, 'symbol', '000001.SZ')"));
}

} // namespace

class DatabaseTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { FaultyDisk::install(); }

    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        m_database = std::make_unique<Database>();
        QCOMPARE(m_database->open(path(QStringLiteral("plans.db"))), Status());
        for (const QString& statement : parents())
            QCOMPARE(m_database->execute(statement), Status());
    }

    void cleanup()
    {
        m_database.reset();
        m_folder.reset();
    }

    void aNewFileIsCreatedWithItsFolder()
    {
        const QString fileName = path(QStringLiteral("some/where/plans.db"));
        Database database;
        QCOMPARE(database.open(fileName), Status());
        QVERIFY(database.isOpen());
        QCOMPARE(database.fileName(), fileName);
        QVERIFY(QFile::exists(fileName));
    }

    void theConnectionIsDurableAndStrict()
    {
        const auto value = [this](const QString& statement) { return m_database->value(statement)->toString(); };
        QCOMPARE(value(QStringLiteral("PRAGMA journal_mode")), QStringLiteral("wal"));
        QCOMPARE(value(QStringLiteral("PRAGMA synchronous")), QStringLiteral("2"));
        QCOMPARE(value(QStringLiteral("PRAGMA foreign_keys")), QStringLiteral("1"));
        QCOMPARE(value(QStringLiteral("PRAGMA user_version")), QString::number(Schema::latestVersion()));
        QCOMPARE(value(QStringLiteral("SELECT count(*) FROM pragma_table_list"
                                      " WHERE schema = 'main' AND name NOT LIKE 'sqlite%' AND NOT strict")),
            QStringLiteral("0"));
        QVERIFY(!m_database->execute(
            QStringLiteral("INSERT INTO users VALUES (?, ?)"), { QByteArray("\x01"), QStringLiteral("name") }));
    }

    void aReopenedFileKeepsItsPlans()
    {
        const QString id = *PlanStore(*m_database).create(sampleRecord(), AtMorning);
        m_database->close();
        QVERIFY(!m_database->isOpen());
        QCOMPARE(m_database->fileName(), QString());
        QCOMPARE(m_database->open(path(QStringLiteral("plans.db"))), Status());
        QCOMPARE(*PlanStore(*m_database).record(id), sampleRecord());
    }

    void anOlderSchemaIsMigratedWithItsPlans()
    {
        const QString fileName = path(QStringLiteral("old.db"));
        QVERIFY(makeVersionOne(fileName));
        Database database;
        QCOMPARE(database.open(fileName), Status());
        const StoredPlan plan = *PlanStore(database).plan(PlanId::fromNumber(1));
        QCOMPARE(plan.version, 3);
        QCOMPARE(plan.created, QDateTime(QDate(2023, 12, 1), QTime(10, 0)));
        QCOMPARE(plan.changed, plan.created);
        QCOMPARE(plan.record.value(QStringLiteral("symbol")).toString(), QStringLiteral("000001.SZ"));
        database.close();
        RawFile raw(fileName);
        QCOMPARE(raw.value(QStringLiteral("PRAGMA user_version")).toInt(), Schema::latestVersion());
        QCOMPARE(raw.value(QStringLiteral("SELECT count(*) FROM sqlite_master WHERE name = 'trade_days'")).toInt(), 0);
    }

    void aMigrationThatFailsLeavesTheOldSchema_data()
    {
        QTest::addColumn<FaultyDisk::Operation>("operation");
        QTest::newRow("reading") << FaultyDisk::Operation::Read;
        QTest::newRow("writing") << FaultyDisk::Operation::Change;
    }

    void aMigrationThatFailsLeavesTheOldSchema()
    {
        QFETCH(FaultyDisk::Operation, operation);
        const QString fileName = path(QStringLiteral("old.db"));
        QVERIFY(makeVersionOne(fileName));
        Database database;
        int refused = 0;
        for (;; ++refused) {
            FaultyDisk::failAt(refused + 1, FaultyDisk::Fault::InputOutput, FaultyDisk::Lasting::ForGood, operation);
            const Status opened = database.open(fileName);
            FaultyDisk::heal();
            if (opened)
                break;
            QVERIFY(!database.isOpen());
            RawFile raw(fileName);
            QCOMPARE(raw.value(QStringLiteral("PRAGMA user_version")).toInt(), 1);
            QCOMPARE(raw.value(QStringLiteral("SELECT count(*) FROM plans")).toInt(), 1);
        }
        QVERIFY2(refused > 5, qPrintable(QString::number(refused)));
        QCOMPARE(*PlanStore(database).count(), 1);
    }

    void aNewerSchemaIsRefusedAndLeftAsItIs()
    {
        const QString fileName = path(QStringLiteral("newer.db"));
        QVERIFY(makeVersionOne(fileName));
        QVERIFY(RawFile(fileName).run(QStringLiteral("PRAGMA user_version = 99")));
        const QByteArray before = contentOf(fileName);
        Database database;
        const Status newer(Error::NewerDatabase, { QStringLiteral("99"), QString::number(Schema::latestVersion()) });
        QCOMPARE(database.open(fileName), cannotOpen(fileName, newer));
        QVERIFY(!database.isOpen());
        QCOMPARE(contentOf(fileName), before);
    }

    void aFileThatCannotBeOpenedIsRefused_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<Status>("cause");
        QTest::newRow("no name") << QString() << Status(Error::NoDatabaseFile);
        QTest::newRow("a folder") << QStringLiteral("folder") << Status(Error::DatabaseIsFolder);
        QTest::newRow("a text") << QStringLiteral("text") << Status(Error::NotADatabase);
        QTest::newRow("below a file") << QStringLiteral("text/plans.db") << Status(Error::CannotCreateFolder);
    }

    void aFileThatCannotBeOpenedIsRefused()
    {
        QFETCH(QString, name);
        QFETCH(Status, cause);
        const QByteArray text = QByteArray("这是一篇文章，不是数据库。").repeated(100);
        QVERIFY(writeFile(path(QStringLiteral("text")), text));
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
        const QString fileName = name.isEmpty() ? QString() : path(name);
        Database database;
        QCOMPARE(database.open(fileName), cannotOpen(fileName, cause));
        QVERIFY(!database.isOpen());
        QCOMPARE(contentOf(path(QStringLiteral("text"))), text);
    }

    void aFileOfAnotherProgramIsRefusedAndLeftAsItIs()
    {
        const QString fileName = path(QStringLiteral("foreign.db"));
        QVERIFY(RawFile(fileName).run(QStringLiteral("CREATE TABLE plans (name TEXT)")));
        const QByteArray before = contentOf(fileName);
        Database database;
        QCOMPARE(database.open(fileName), cannotOpen(fileName, Error::ForeignDatabase));
        QCOMPARE(contentOf(fileName), before);
    }

    void aDamagedFileIsReportedAndLeftAsItIs()
    {
        PlanStore plans(*m_database);
        for (int i = 0; i < 500; ++i)
            QVERIFY(plans.create(sampleRecord(), AtMorning));
        m_database->close();
        const QString fileName = path(QStringLiteral("damaged.db"));
        QByteArray content = contentOf(path(QStringLiteral("plans.db")));
        const int pageSize = 4096;
        QVERIFY(content.size() > 20 * pageSize);
        // A page of plans.
        const int damaged = content.lastIndexOf("DROP TABLE plans") / pageSize;
        content.replace(damaged * pageSize, pageSize, QByteArray(pageSize, '\x5a'));
        QVERIFY(writeFile(fileName, content));
        Database database;
        QCOMPARE(database.open(fileName), Status());
        QCOMPARE(database.checkPages(), Status(Error::DatabaseCorrupt));
        QCOMPARE(PlanStore(database).page(0, 600).status(), Status(Error::DatabaseCorrupt));
        database.close();
        QCOMPARE(contentOf(fileName), content);
    }

    void aDamagedFileIsNotMigrated()
    {
        const QString fileName = path(QStringLiteral("old.db"));
        QVERIFY(makeVersionOne(fileName));
        constexpr int PageSize = 4096;
        QByteArray content = contentOf(fileName);
        content.replace(content.size() - PageSize, PageSize, QByteArray(PageSize, '\x5a'));
        QVERIFY(writeFile(fileName, content));
        Database database;
        QCOMPARE(database.open(fileName), cannotOpen(fileName, Error::DatabaseCorrupt));
        QCOMPARE(contentOf(fileName), content);
    }

    void aTransactionThatFailsStoresNothing()
    {
        PlanStore plans(*m_database);
        const Status changedMind(Error::UnknownPlan, { QStringLiteral("changed my mind") });
        const Status status = m_database->transaction([&] {
            const auto created = plans.create(sampleRecord(), AtMorning);
            return created ? changedMind : created.status();
        });
        QCOMPARE(status, changedMind);
        QCOMPARE(*plans.count(), 0);
    }

    void theLogIsStartedBeforeTheFirstTransaction()
    {
        m_database->close();
        QCOMPARE(m_database->open(path(QStringLiteral("plans.db"))), Status());
        QCOMPARE(logFrames(), 0);
        m_database->prepareWal();
        QCOMPARE(logFrames(), 1);
        m_database->prepareWal();
        QCOMPARE(logFrames(), 1);
        QCOMPARE(*PlanStore(*m_database).count(), 0);
    }

    void aLongLogIsCheckpointedUnlessAnotherClientWrites()
    {
        PlanStore plans(*m_database);
        for (int i = 0; i < 60; ++i)
            QVERIFY(plans.create(sampleRecord(), AtMorning));
        QVERIFY(logFrames() > 60);
        Database other;
        QCOMPARE(other.open(path(QStringLiteral("plans.db"))), Status());
        QCOMPARE(other.configure(QStringLiteral("BEGIN IMMEDIATE")), Status());
        QElapsedTimer timer;
        timer.start();
        m_database->prepareWal();
        QVERIFY2(timer.elapsed() < 800, "waited for the other client's transaction");
        QCOMPARE(other.configure(QStringLiteral("ROLLBACK")), Status());
        m_database->prepareWal();
        QCOMPARE(logFrames(), 1);
        QCOMPARE(*plans.count(), 60);
        QCOMPARE(*PlanStore(other).count(), 60);
    }

    void startingTheLogKeepsTheVersionOfTheFile()
    {
        // A newer program has migrated the file in the meantime.
        QCOMPARE(m_database->execute(QStringLiteral("PRAGMA user_version = 99")), Status());
        for (int i = 0; i < 50; ++i)
            QCOMPARE(m_database->transaction([] { return Status(); }), Status());
        m_database->prepareWal();
        QCOMPARE(logFrames(), 1);
        QCOMPARE(m_database->value(QStringLiteral("PRAGMA user_version"))->toInt(), 99);
    }

    void theChangeTokenIsEmptyWithinATransaction()
    {
        const QString before = m_database->changeToken();
        QVERIFY(!before.isEmpty());
        QCOMPARE(m_database->changeToken(), before);
        QString within = QStringLiteral("not asked");
        QVERIFY(m_database->transaction([&] {
            within = m_database->changeToken();
            return Status();
        }));
        QCOMPARE(within, QString());
        QVERIFY(PlanStore(*m_database).create(sampleRecord(), AtMorning));
        QVERIFY(m_database->changeToken() != before);
    }

    void aWorkerThreadReadsWithAnObjectOfItsOwn()
    {
        QVERIFY(PlanStore(*m_database).create(sampleRecord(), AtMorning));
        Status opened = Error::DatabaseNotOpen;
        int count = 0;
        const std::unique_ptr<QThread> worker(QThread::create([&] {
            Database database;
            opened = database.open(path(QStringLiteral("plans.db")));
            count = *PlanStore(database).count();
        }));
        worker->start();
        QVERIFY(worker->wait(10000));
        QCOMPARE(opened, Status());
        QCOMPARE(count, 1);
    }

    void aFailedStatementFailsItsTransaction()
    {
        PlanStore plans(*m_database);
        const Status status = m_database->transaction([&] {
            // The failure is ignored on purpose.
            const auto failed = m_database->value(QStringLiteral("SELECT * FROM nothing"));
            const auto created = plans.create(sampleRecord(), AtMorning);
            return failed || created ? created.status() : Status();
        });
        QCOMPARE(status.error(), Error::DatabaseFailed);
        QVERIFY(status.details().constFirst().contains(QStringLiteral("nothing")));
        QCOMPARE(*plans.count(), 0);
        QVERIFY(plans.create(sampleRecord(), AtMorning));
    }

    void aReadThatFailsInTheMiddleIsReported()
    {
        QCOMPARE(
            m_database->execute(QStringLiteral("INSERT INTO users WITH n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n"
                                               " WHERE i < 300) SELECT i, hex(zeroblob(500)) FROM n")),
            Status());
        const int all = m_database->value(QStringLiteral("SELECT count(*) FROM users"))->toInt();
        int later = 0;
        bool failed = true;
        for (int nth = 1; failed; ++nth) {
            QCOMPARE(m_database->configure(QStringLiteral("PRAGMA shrink_memory")), Status());
            FaultyDisk::failAt(
                nth, FaultyDisk::Fault::InputOutput, FaultyDisk::Lasting::Once, FaultyDisk::Operation::Read);
            int rows = 0;
            const Status status =
                m_database->read(QStringLiteral("SELECT name FROM users"), {}, [&rows](const QSqlQuery&) { ++rows; });
            failed = FaultyDisk::hasFailed();
            FaultyDisk::heal();
            QCOMPARE(status.error(), failed ? Error::DiskFailed : Error::None);
            QCOMPARE(rows == all, !failed);
            later += failed && rows > 0 ? 1 : 0;
        }
        QVERIFY2(later > 10, qPrintable(QString::number(later)));
    }

    void aTransactionThatHasEndedCommitsNothing()
    {
        PlanStore plans(*m_database);
        const Status status = m_database->transaction([&] {
            const auto first = plans.create(sampleRecord(), AtMorning);
            // Like SQLite itself on a full disk, but without an error.
            Status ended = m_database->configure(QStringLiteral("ROLLBACK"));
            const auto second = plans.create(sampleRecord(), AtMorning);
            return first && ended && second ? Status() : Status();
        });
        QCOMPARE(status, Status(Error::TransactionEnded));
        QCOMPARE(*plans.count(), 0);
        QVERIFY(plans.create(sampleRecord(), AtMorning));
    }

    void aFileThatWasExchangedIsNotWritten_data()
    {
        QTest::addColumn<QString>("change");
        QTest::newRow("deleted") << QStringLiteral("delete");
        QTest::newRow("replaced by a copy") << QStringLiteral("replace");
        QTest::newRow("moved") << QStringLiteral("move");
        QTest::newRow("linked twice") << QStringLiteral("link");
        QTest::newRow("without its log") << QStringLiteral("-wal");
        QTest::newRow("without the log's index") << QStringLiteral("-shm");
    }

    void aFileThatWasExchangedIsNotWritten()
    {
        QFETCH(QString, change);
        PlanStore plans(*m_database);
        QVERIFY(plans.create(sampleRecord(), AtMorning));
        const QString fileName = path(QStringLiteral("plans.db"));
        exchange(fileName, change);
        const Status changed(Error::DatabaseFileChanged);
        QCOMPARE(plans.create(sampleRecord(), AtMorning).status(), changed);
        QCOMPARE(plans.modify(PlanId::fromNumber(1), 1, sampleRecord(), AtNoon), changed);
        QCOMPARE(UserStore(*m_database).add({ QStringLiteral("u1"), QStringLiteral("u1") }), changed);
        m_database->prepareWal();
        QCOMPARE(*plans.count(), 1);
        QCOMPARE(plans.plan(PlanId::fromNumber(1))->version, 1);
        reportFaults(QStringLiteral("a file ") + QString::fromLatin1(QTest::currentDataTag()), 4, 1, *plans.count(), 0);
    }

    void aFileThatIsExchangedWithinATransactionKeepsNothing()
    {
        PlanStore plans(*m_database);
        const QString fileName = path(QStringLiteral("plans.db"));
        const Status status = m_database->transaction([&] {
            const auto created = plans.create(sampleRecord(), AtMorning);
            exchange(fileName, QStringLiteral("link"));
            return created.status();
        });
        QCOMPARE(status, Status(Error::DatabaseFileChanged));
        QVERIFY(QFile::remove(path(QStringLiteral("other.db"))));
        QCOMPARE(*plans.count(), 0);
    }

    void aRestoredBackupStaysAsItIs()
    {
        const QString fileName = path(QStringLiteral("plans.db"));
        const QString log = fileName + QStringLiteral("-wal");
        PlanStore plans(*m_database);
        QVERIFY(plans.create(sampleRecord(), AtMorning));
        QCOMPARE(
            m_database->configure(QStringLiteral("VACUUM INTO '%1'").arg(path(QStringLiteral("backup.db")))), Status());
        QVERIFY(plans.create(sampleRecord(), AtMorning));
        for (const QString& name : { fileName, log, fileName + QStringLiteral("-shm") })
            QVERIFY(QFile::remove(name));
        QVERIFY(QFile::rename(path(QStringLiteral("backup.db")), fileName));
        Database restored;
        QCOMPARE(restored.open(fileName), Status());
        QVERIFY(PlanStore(restored).create(sampleRecord(), { QStringLiteral("restored"), Noon }));
        const QByteArray before = contentOf(fileName);
        const QByteArray logBefore = contentOf(log);
        QVERIFY(!logBefore.isEmpty());
        QVERIFY(!plans.create(sampleRecord(), AtMorning));
        m_database->close();
        QCOMPARE(contentOf(fileName), before);
        QCOMPARE(contentOf(log), logBefore);
        QCOMPARE(PlanStore(restored).plan(PlanId::fromNumber(2))->creator, QStringLiteral("restored"));
    }

    void aFileThatIsCopiedOverIsNotWritten_data()
    {
        QTest::addColumn<QString>("content");
        QTest::newRow("with a backup") << QStringLiteral("backup");
        QTest::newRow("with a backup that has grown") << QStringLiteral("grown");
        QTest::newRow("with an older state") << QStringLiteral("older");
        QTest::newRow("with an older state of the same size") << QStringLiteral("counter");
        QTest::newRow("with a part of it") << QStringLiteral("part");
    }

    void aFileThatIsCopiedOverIsNotWritten()
    {
        QFETCH(QString, content);
        const QString fileName = path(QStringLiteral("plans.db"));
        PlanStore plans(*m_database);
        QVERIFY(plans.create(sampleRecord(), AtMorning));
        QCOMPARE(m_database->configure(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)")), Status());
        const QByteArray older = contentOf(fileName);
        for (int i = 0; i < 200; ++i)
            QVERIFY(plans.create(sampleRecord(), AtMorning));
        QCOMPARE(m_database->configure(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)")), Status());
        const QString backup = path(QStringLiteral("backup.db"));
        QCOMPARE(m_database->configure(QStringLiteral("VACUUM INTO '%1'").arg(backup)), Status());
        QMap<QString, QByteArray> contents{ { QStringLiteral("backup"), contentOf(backup) },
            { QStringLiteral("older"), older }, { QStringLiteral("part"), older.left(50) } };
        for (int i = 0; i < 5; ++i)
            QVERIFY(RawFile(backup).run(QStringLiteral("INSERT INTO users VALUES (%1, hex(zeroblob(100000)))").arg(i)));
        contents.insert(QStringLiteral("grown"), contentOf(backup));
        // The change counter in the header.
        contents.insert(QStringLiteral("counter"), contentOf(fileName).replace(24, 4, QByteArray(4, '\0')));
        QVERIFY(plans.create(sampleRecord(), AtMorning));

        const QByteArray restored = contents.value(content);
        QVERIFY(!restored.isEmpty() && restored != contentOf(fileName));
        QVERIFY(writeFile(fileName, restored));
        const Status changed(Error::DatabaseFileChanged);
        QCOMPARE(plans.create(sampleRecord(), AtMorning).status(), changed);
        QCOMPARE(plans.modify(PlanId::fromNumber(1), 1, sampleRecord(), AtNoon), changed);
        m_database->prepareWal();
        m_database->close();
        QCOMPARE(contentOf(fileName), restored);
        reportFaults(QStringLiteral("a file copied over ") + QString::fromLatin1(QTest::currentDataTag()), 2, 0, 0, 0);
    }

    void aFileThatOthersCheckpointIsWrittenOn()
    {
        Database other;
        QCOMPARE(other.open(path(QStringLiteral("plans.db"))), Status());
        PlanStore plans(*m_database);
        for (int i = 0; i < 20; ++i) {
            QVERIFY(PlanStore(other).create(sampleRecord(), AtMorning));
            QVERIFY(plans.create(sampleRecord(), AtMorning));
            QCOMPARE(other.configure(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)")), Status());
        }
        QCOMPARE(*plans.count(), 40);
    }

    void aFileWithASecondNameIsNotOpened()
    {
        const QString fileName = path(QStringLiteral("plans.db"));
        m_database->close();
        exchange(fileName, QStringLiteral("link"));
        QCOMPARE(m_database->open(fileName), cannotOpen(fileName, Error::DatabaseFileChanged));
        QVERIFY(QFile::remove(path(QStringLiteral("other.db"))));
        QCOMPARE(m_database->open(fileName), Status());
    }

    void theEndOfThePlanNumbersIsReported()
    {
        PlanStore plans(*m_database);
        const QString id = *plans.create(sampleRecord(), AtMorning);
        QCOMPARE(m_database->execute(
                     QStringLiteral("UPDATE sqlite_sequence SET seq = 9223372036854775807 WHERE name = 'plans'")),
            Status());
        QCOMPARE(plans.create(sampleRecord(), AtMorning).status(), Status(Error::NumbersExhausted));
        QCOMPARE(plans.modify(id, 1, sampleRecord(), AtNoon), Status());
        QCOMPARE(*plans.count(), 1);
    }

    void aClosedDatabaseReportsAnError()
    {
        m_database->close();
        PlanStore plans(*m_database);
        QVERIFY(!plans.create(sampleRecord(), AtMorning));
        QCOMPARE(plans.count().status(), Status(Error::DatabaseNotOpen));
        QCOMPARE(plans.page(0, 10).status(), Status(Error::DatabaseNotOpen));
    }

    void anIdIsTakenOnlyAsItIsWritten_data()
    {
        QTest::addColumn<QString>("id");
        QTest::addColumn<qint64>("number");
        QTest::newRow("the first plan") << QStringLiteral("AP00000001") << qint64(1);
        QTest::newRow("more than eight digits") << QStringLiteral("AP123456789") << qint64(123456789);
        QTest::newRow("too few zeros") << QStringLiteral("AP1") << qint64(0);
        QTest::newRow("lower case") << QStringLiteral("ap00000001") << qint64(0);
        QTest::newRow("a sign") << QStringLiteral("AP+0000001") << qint64(0);
        QTest::newRow("zero") << QStringLiteral("AP00000000") << qint64(0);
        QTest::newRow("too large") << QStringLiteral("AP99999999999999999999") << qint64(0);
        QTest::newRow("empty") << QString() << qint64(0);
    }

    void anIdIsTakenOnlyAsItIsWritten()
    {
        QFETCH(QString, id);
        QFETCH(qint64, number);
        QCOMPARE(PlanId::toNumber(id).value_or(0), number);
    }

    void aCreatedPlanReadsBackAsItWas()
    {
        PlanStore plans(*m_database);
        const auto created = plans.create(sampleRecord(), { QStringLiteral("trader01"), Morning });
        QCOMPARE(created.status(), Status());
        const StoredPlan plan = *plans.plan(*created);
        QCOMPARE(plan.id, *created);
        QCOMPARE(plan.version, 1);
        QCOMPARE(plan.creator, QStringLiteral("trader01"));
        QCOMPARE(plan.created, Morning);
        QCOMPARE(plan.changed, Morning);
        QCOMPARE(plan.record, sampleRecord());
        for (const QVariant& value : plan.record)
            QCOMPARE(value.userType(), int(QMetaType::QString));
    }

    void aPlanWithoutOtherParametersHasNoSuchKey()
    {
        PlanStore plans(*m_database);
        PlanStore::Record record = sampleRecord();
        record.remove(OtherParamKey);
        const QString id = *plans.create(record, AtMorning);
        QVERIFY(!plans.record(id)->contains(OtherParamKey));
        record.insert(OtherParamKey, QString());
        QCOMPARE(plans.modify(id, 1, record, AtNoon), Status());
        QVERIFY(plans.record(id)->contains(OtherParamKey));
    }

    void idsAreNewAndAscending()
    {
        PlanStore plans(*m_database);
        const QString first = *plans.create(sampleRecord(), AtMorning);
        // As someone with access to the file could do.
        for (const char* statement :
            { "DROP TRIGGER history_is_not_deleted", "DELETE FROM history", "DELETE FROM plans" })
            QCOMPARE(m_database->execute(QLatin1String(statement)), Status());
        const QString second = *plans.create(sampleRecord(), AtMorning);
        QCOMPARE(first, QStringLiteral("AP00000001"));
        QCOMPARE(second, QStringLiteral("AP00000002"));
        QCOMPARE(*plans.record(first), PlanStore::Record());
    }

    void aRecordThatWouldComeBackChangedIsRefused_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<Status>("expected");
        const QString remark = AutoPlanField::BaseField::remark;
        const auto row = [&remark](const char* name, const QString& text, const Status& expected) {
            QTest::newRow(name) << remark << text << expected;
        };
        const Status refused(Error::FieldNotStorable, { remark });
        row("half a character at the end", QStringLiteral("a") + QChar(0xD83D), refused);
        row("half a character before others", QString(QChar(0xD83D)) + QStringLiteral("a"), refused);
        row("the second half alone", QString(QChar(0xDE00)), refused);
        row("U+FFFE", QStringLiteral("a") + QChar(0xFFFE), refused);
        row("U+FFFF", QStringLiteral("a") + QChar(0xFFFF), refused);
        row("a byte order mark at the beginning", QChar(0xFEFF) + QStringLiteral("a"), refused);
        row("a null character", QStringLiteral("a") + QChar(0) + QStringLiteral("b"), refused);
        row("a byte order mark inside", QStringLiteral("a") + QChar(0xFEFF), Status());
        row("a character of two halves", QString::fromUtf8("\xF0\x9F\x98\x80"), Status());
        row("control characters", QStringLiteral("\t\n\x01"), Status());
        row("the longest text", QString(4000, QLatin1Char('x')), Status());
        row("a longer text", QString(4001, QLatin1Char('x')),
            { Error::FieldTooLong, { remark, QStringLiteral("4000") } });
        QTest::newRow("other parameters that are too long")
            << OtherParamKey << QString((1 << 20) + 1, QLatin1Char('x'))
            << Status(Error::FieldTooLong, { OtherParamKey, QStringLiteral("1048576") });
        QTest::newRow("an unknown field") << QStringLiteral("colour") << QStringLiteral("red")
                                          << Status(Error::FieldUnknown, { QStringLiteral("colour") });
    }

    void aRecordThatWouldComeBackChangedIsRefused()
    {
        QFETCH(QString, field);
        QFETCH(QString, text);
        QFETCH(Status, expected);
        PlanStore plans(*m_database);
        const QString id = *plans.create(sampleRecord(), AtMorning);
        PlanStore::Record record = sampleRecord();
        record.insert(field, text);
        QCOMPARE(plans.create(record, AtMorning).status(), expected);
        QCOMPARE(plans.modify(id, 1, record, AtNoon), expected);
        QCOMPARE(*plans.record(id), expected ? record : sampleRecord());
        QCOMPARE(*plans.count(), expected ? 2 : 1);
    }

    void anEmptyRecordIsRefused()
    {
        PlanStore plans(*m_database);
        QCOMPARE(plans.create({}, AtMorning).status(), Status(Error::EmptyPlan));
        QCOMPARE(*plans.count(), 0);
    }

    void aModifiedPlanCountsItsVersionUp()
    {
        PlanStore plans(*m_database);
        const QString id = *plans.create(sampleRecord(), AtMorning);
        const PlanStore::Record changed{ { QStringLiteral("symbol"), QStringLiteral("000001.SZ") } };
        QCOMPARE(plans.modify(id, 1, changed, AtNoon), Status());
        const StoredPlan plan = *plans.plan(id);
        QCOMPARE(plan.version, 2);
        QCOMPARE(plan.record, changed);
        QCOMPARE(plan.created, Morning);
        QCOMPARE(plan.changed, Noon);
    }

    void aModificationThatFailsLeavesThePlan()
    {
        PlanStore plans(*m_database);
        const QString id = *plans.create(sampleRecord(), AtMorning);
        QCOMPARE(m_database->execute(QStringLiteral("CREATE TRIGGER no_version BEFORE UPDATE ON plans"
                                                    " WHEN NEW.version = 2 BEGIN SELECT RAISE(ABORT, 'no'); END")),
            Status());
        PlanStore::Record changed = sampleRecord();
        changed.insert(QStringLiteral("symbol"), QStringLiteral("000001.SZ"));
        QVERIFY(!plans.modify(id, 1, changed, AtNoon));
        QCOMPARE(plans.plan(id)->version, 1);
        QCOMPARE(*plans.record(id), sampleRecord());
    }

    void pagesShowTheNewestPlansFirst()
    {
        PlanStore plans(*m_database);
        for (int i = 0; i < 5; ++i)
            QVERIFY(plans.create(sampleRecord(), AtMorning));
        QCOMPARE(*plans.count(), 5);
        const QVector<StoredPlan> page = *plans.page(1, 2);
        QCOMPARE(page.size(), 2);
        QCOMPARE(page.at(0).id, QStringLiteral("AP00000004"));
        QCOMPARE(page.at(1).id, QStringLiteral("AP00000003"));
        QCOMPARE(page.at(0).record, sampleRecord());
        QCOMPARE(plans.page(4, 10)->size(), 1);
        QCOMPARE(plans.page(5, 10)->size(), 0);
        QCOMPARE(plans.page(-1, 10)->size(), 0);
        QCOMPARE(plans.page(0, 0)->size(), 0);
    }

    void plansOfAPeriodIncludeItsFirstAndLastDay()
    {
        PlanStore plans(*m_database);
        const PlanStore::Record period{ { AutoPlanField::BaseField::beginDate, QStringLiteral("2024-05-06") },
            { AutoPlanField::BaseField::endDate, QStringLiteral("2024-05-08") } };
        const QString id = *plans.create(period, AtMorning);
        QCOMPARE(plans.plansOfDay(QDate(2024, 5, 5))->due, QStringList());
        QCOMPARE(plans.plansOfDay(QDate(2024, 5, 6))->due, QStringList{ id });
        QCOMPARE(plans.plansOfDay(QDate(2024, 5, 8))->due, QStringList{ id });
        QCOMPARE(plans.plansOfDay(QDate(2024, 5, 9))->due, QStringList());
    }

    void onlyActivePlansAreThoseOfADay()
    {
        PlanStore plans(*m_database);
        const PlanStore::Record period{ { AutoPlanField::BaseField::beginDate, QStringLiteral("2024-05-06") },
            { AutoPlanField::BaseField::endDate, QStringLiteral("2024-05-08") } };
        const QString id = *plans.create(period, AtMorning);
        const QVector<QPair<QString, PlanState>> others{ { QStringLiteral("paused"), PlanState::Paused },
            { QStringLiteral("stopped"), PlanState::Stopped }, { QStringLiteral("archived"), PlanState::Archived } };
        QCOMPARE(plans.plan(id)->state, PlanState::Active);
        for (const auto& other : others) {
            QCOMPARE(m_database->execute(QStringLiteral("UPDATE plans SET state = ?"), { other.first }), Status());
            QCOMPARE(plans.plan(id)->state, other.second);
            QCOMPARE(plans.plansOfDay(QDate(2024, 5, 6))->due, QStringList());
            QCOMPARE(*plans.count(), 1);
        }
    }

    void aRowThatTheStoreDoesNotWriteIsReported_data()
    {
        QTest::addColumn<QString>("change");
        QTest::newRow("a field that is no text") << QStringLiteral("fields = '{\"remark\": 1}'");
        QTest::newRow("a time that is none") << QStringLiteral("created_time = 'noon'");
        QTest::newRow("an unknown state") << QStringLiteral("state = 'other'");
    }

    void aRowThatTheStoreDoesNotWriteIsReported()
    {
        QFETCH(QString, change);
        PlanStore plans(*m_database);
        const QString id = *plans.create(sampleRecord(), AtMorning);
        QVERIFY(plans.create(sampleRecord(), AtMorning));
        QCOMPARE(m_database->configure(QStringLiteral("PRAGMA ignore_check_constraints = ON")), Status());
        QCOMPARE(m_database->execute(QStringLiteral("UPDATE plans SET %1 WHERE number = 1").arg(change)), Status());
        const Status damaged(Error::DamagedPlan, { id });
        QCOMPARE(plans.plan(id).status(), damaged);
        QCOMPARE(plans.page(0, 10).status(), damaged);
        QCOMPARE(plans.plan(PlanId::fromNumber(2)).status(), Status());
    }

    void timesAreStoredInUtc()
    {
        PlanStore plans(*m_database);
        const QString id = *plans.create(sampleRecord(), AtMorning);
        QCOMPARE(m_database->value(QStringLiteral("SELECT created_time FROM plans"))->toString(),
            QStringLiteral("2024-05-06T01:30:00.125Z"));
        QCOMPARE(plans.plan(id)->created, Morning);
        QCOMPARE(plans.plan(id)->created.timeSpec(), Qt::LocalTime);
    }

    void anInstructionIsStoredAsNumbersAndReadsBackAsItWas()
    {
        const QString plan = *PlanStore(*m_database).create(sampleRecord(), AtMorning);
        InstructionStore instructions(*m_database);
        const InstructionStore::Fields fields{ { QStringLiteral("12013"), QStringLiteral("0") },
            { QStringLiteral("57134"), QStringLiteral("Q") }, { QStringLiteral("44"), QStringLiteral("0.070") },
            { QStringLiteral("38"), QStringLiteral("1000") }, { QStringLiteral("14"), QStringLiteral("0") },
            { QStringLiteral("217201"), QStringLiteral("70.00") },
            { QStringLiteral("cumAmount"), QStringLiteral("0.05") } };
        const QString id = *instructions.add(plan, QDate(2024, 5, 6), fields, AtMorning);
        InstructionStore::Fields expected = fields;
        expected.insert(QStringLiteral("75"), QStringLiteral("2024-05-06"));
        QCOMPARE(instructions.ofPlan(plan)->value(id), expected);
        QCOMPARE(m_database
                     ->value(QStringLiteral("SELECT price_ticks || ' ' || price_decimals || ' ' ||"
                                            " issued_quantity || ' ' || issued_fen || ' ' || filled_fen"
                                            " FROM instructions"))
                     ->toString(),
            QStringLiteral("70 3 1000 7000 5"));
        QCOMPARE(instructions.used({ plan })->value(plan).quantity, 1000.0);
        QCOMPARE(instructions.used({ plan })->value(plan).yuan, 70.0);
    }

    void anInstructionThatWouldComeBackChangedIsRefused_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<Error>("error");
        const auto row = [](const char* name, const char* field, const char* text, Error error) {
            QTest::newRow(name) << QString::fromLatin1(field) << QString::fromLatin1(text) << error;
        };
        row("a quantity with a leading zero", "38", "0100", Error::NotNumber);
        row("a quantity with a point", "14", "100.0", Error::NotNumber);
        row("a negative quantity", "14", "-1", Error::NotNumber);
        row("no quantity", "38", "", Error::NotNumber);
        row("an amount with one decimal", "217201", "0.5", Error::NotNumber);
        row("an amount without an integer part", "cumAmount", ".50", Error::NotNumber);
        row("a price with an exponent", "44", "1e3", Error::NotNumber);
        row("a price with seven decimals", "44", "1.0000000", Error::NotNumber);
        row("a price that is too large", "44", "9223372036854775808", Error::NotNumber);
        row("a state that there is not", "12013", "2", Error::DatabaseFailed);
        row("an unknown field", "99", "1", Error::FieldUnknown);
        row("the day, which is given separately", "75", "2024-05-06", Error::FieldUnknown);
    }

    void anInstructionThatWouldComeBackChangedIsRefused()
    {
        QFETCH(QString, field);
        QFETCH(QString, text);
        QFETCH(Error, error);
        const QString plan = *PlanStore(*m_database).create(sampleRecord(), AtMorning);
        InstructionStore instructions(*m_database);
        const QString id = *instructions.add(plan, QDate(2024, 5, 6), {}, AtMorning);
        QCOMPARE(instructions.add(plan, QDate(2024, 5, 6), { { field, text } }, AtMorning).status().error(), error);
        QCOMPARE(instructions.update(plan, id, { { field, text } }, AtNoon).error(), error);
        QCOMPARE(instructions.ofPlan(plan)->size(), 1);
        QCOMPARE(instructions.ofPlan(plan)->value(id).size(), 1);
    }

    void anOtherParameterTextOfAMegabyteReadsBack()
    {
        PlanStore plans(*m_database);
        PlanStore::Record record = sampleRecord();
        record.insert(OtherParamKey, QString(1 << 20, QChar(u'数')));
        const QString id = *plans.create(record, AtMorning);
        QCOMPARE(*plans.record(id), record);
    }

    void instructionsBelongToTheirPlanAndDay()
    {
        PlanStore plans(*m_database);
        InstructionStore instructions(*m_database);
        const QString plan = *plans.create(sampleRecord(), AtMorning);
        const QString other = *plans.create(sampleRecord(), AtMorning);
        const InstructionStore::Fields fields{ { QStringLiteral("14"), QStringLiteral("0") },
            { QStringLiteral("38"), QStringLiteral("500") } };
        const QString first = *instructions.add(plan, QDate(2024, 5, 6), fields, AtMorning);
        const QString second = *instructions.add(plan, QDate(2024, 5, 7), fields, AtMorning);
        QVERIFY(first < second);
        QCOMPARE(
            instructions.update(plan, first, { { QStringLiteral("14"), QStringLiteral("300") } }, AtNoon), Status());

        const auto all = *instructions.ofPlan(plan);
        QCOMPARE(all.keys(), QStringList({ first, second }));
        QCOMPARE(all.value(first).value(QStringLiteral("14")).toString(), QStringLiteral("300"));
        QCOMPARE(all.value(first).value(QStringLiteral("38")).toString(), QStringLiteral("500"));
        InstructionStore::Fields expected = fields;
        expected.insert(QStringLiteral("75"), QStringLiteral("2024-05-07"));
        QCOMPARE(all.value(second), expected);
        QCOMPARE(instructions.ofDay(plan, QDate(2024, 5, 7))->keys(), QStringList{ second });
        QCOMPARE(instructions.ofPlan(other)->size(), 0);
    }

    void anInstructionOfAnUnknownPlanIsRefused()
    {
        InstructionStore instructions(*m_database);
        const QString plan = QStringLiteral("AP00000001");
        QCOMPARE(
            instructions.add(plan, QDate(2024, 5, 6), {}, AtMorning).status(), Status(Error::UnknownPlan, { plan }));
        QCOMPARE(instructions.update(plan, QStringLiteral("x"), {}, AtNoon),
            Status(Error::UnknownInstruction, { QStringLiteral("x") }));
        QCOMPARE(instructions.ofPlan(plan)->size(), 0);
    }

    void aMissingInstructionLeavesAGapInTheIds()
    {
        const QString plan = *PlanStore(*m_database).create(sampleRecord(), AtMorning);
        InstructionStore instructions(*m_database);
        for (int i = 0; i < 3; ++i)
            QVERIFY(instructions.add(plan, QDate(2024, 5, 6), {}, AtMorning));
        QCOMPARE(m_database->execute(QStringLiteral("DELETE FROM instructions WHERE position = 2")), Status());
        QCOMPARE(*instructions.add(plan, QDate(2024, 5, 7), {}, AtMorning), QStringLiteral("AP00000001-000004"));
    }

    void accountsComeInTheOrderInWhichTheyWereGiven()
    {
        UserStore users(*m_database);
        QCOMPARE(users.add({ QStringLiteral("u1"), QStringLiteral("林岫") }), Status());
        addAccount(QStringLiteral("2"), QStringLiteral("C2"));
        addAccount(QStringLiteral("1"), QStringLiteral("C1"));
        AccountStore accounts(*m_database);
        QCOMPARE(accounts.assign(QStringLiteral("u1"), QStringLiteral("2")), Status());
        QCOMPARE(accounts.assign(QStringLiteral("u1"), QStringLiteral("1")), Status());
        QVERIFY(!accounts.assign(QStringLiteral("nobody"), QStringLiteral("1")));

        const QVector<StoredAccount> mine = *accounts.accountsOf(QStringLiteral("u1"));
        QCOMPARE(mine.size(), 2);
        QCOMPARE(mine.at(0).tradingAccount, QStringLiteral("2"));
        QCOMPARE(mine.at(1).tradingAccount, QStringLiteral("1"));
        QCOMPARE(mine.at(0).exchangeAccounts.value(QStringLiteral("XSHG")), QStringLiteral("A1"));
        QCOMPARE(accounts.account(QStringLiteral("1"))->clientNo, QStringLiteral("C1"));
        QCOMPARE(accounts.account(QStringLiteral("9"))->tradingAccount, QString());
        QCOMPARE(users.user(QStringLiteral("u1"))->name, QStringLiteral("林岫"));
        QCOMPARE(users.user(QStringLiteral("u2"))->id, QString());
        QCOMPARE(users.users()->size(), 4);
    }

    void authoritiesAndRulesAreKeptPerUserAccountAndType()
    {
        const QString user = QStringLiteral("u1");
        const QString account = QStringLiteral("1");
        QVERIFY(UserStore(*m_database).add({ user, user }));
        addAccount(account, QStringLiteral("C1"));
        AuthorityStore authorities(*m_database);
        QCOMPARE(authorities.grant(user, account, QStringLiteral("5")), Status());
        QVERIFY(authorities.rights(user, account, QStringLiteral("5"))->authority);
        QVERIFY(!authorities.rights(user, account, QStringLiteral("1"))->authority);
        QVERIFY(!authorities.rights(QStringLiteral("u2"), account, QStringLiteral("5"))->authority);
        QCOMPARE(authorities.rights(user, account, QStringLiteral("5"))->ruleProperty, 0);
        QCOMPARE(authorities.setRuleProperty(user, account, QStringLiteral("5"), 1), Status());
        QCOMPARE(authorities.rights(user, account, QStringLiteral("5"))->ruleProperty, 1);
        QCOMPARE(authorities.rights(user, account, QStringLiteral("1"))->ruleProperty, 0);
    }

    void aChainKeepsItsOrderAndItsDuplicates()
    {
        const QString key = QStringLiteral("K");
        const QStringList names{ QStringLiteral("乙"), QStringLiteral("甲"), QStringLiteral("乙") };
        addAccount(QStringLiteral("1"), QStringLiteral("C1"));
        AuthorityStore chains(*m_database);
        QCOMPARE(chains.addChain(QStringLiteral("1"), QStringLiteral("5"), key), Status());
        QCOMPARE(chains.addChainUsers(key, ChainRole::Forward, names), Status());
        QCOMPARE(chains.rights(QString(), QStringLiteral("1"), QStringLiteral("5"))->chainKey, key);
        QCOMPARE(chains.rights(QString(), QStringLiteral("1"), QStringLiteral("1"))->chainKey, QString());
        QCOMPARE(*chains.chainUsers(key, ChainRole::Forward), names);
        QCOMPARE(*chains.chainUsers(key, ChainRole::Execute), QStringList());
        QVERIFY(!chains.addChainUsers(QStringLiteral("other"), ChainRole::Execute, names));
    }

    void aSignatureIsKeptWithTimeAndUser()
    {
        const QString protocol = QStringLiteral("reduce");
        QVERIFY(UserStore(*m_database).add({ QStringLiteral("u1"), QStringLiteral("u1") }));
        addAccount(QStringLiteral("1"), QStringLiteral("C1"));
        addAccount(QStringLiteral("2"), QStringLiteral("C2"));
        for (const QString& account : { QStringLiteral("1"), QStringLiteral("2") })
            QVERIFY(AccountStore(*m_database).assign(QStringLiteral("u1"), account));
        AgreementStore agreements(*m_database);
        QCOMPARE(agreements.add({ protocol, QStringLiteral("标题"), QStringLiteral("正文") }), Status());
        QCOMPARE(agreements.agreement(protocol)->content, QStringLiteral("正文"));
        QCOMPARE(*agreements.unsignedClientNumbers(protocol, QStringLiteral("u1")),
            QStringList({ QStringLiteral("C1"), QStringLiteral("C2") }));

        QCOMPARE(agreements.sign(protocol, QStringLiteral("C1"), { QStringLiteral("u1"), Morning }), Status());
        QCOMPARE(agreements.sign(protocol, QStringLiteral("C1"), { QStringLiteral("u1"), Noon }), Status());
        QCOMPARE(*agreements.signedTime(protocol, QStringLiteral("C1")), Morning);
        QVERIFY(!agreements.signedTime(protocol, QStringLiteral("C2"))->isValid());
        QCOMPARE(
            *agreements.unsignedClientNumbers(protocol, QStringLiteral("u1")), QStringList{ QStringLiteral("C2") });
        QVERIFY(!agreements.sign(QStringLiteral("unknown"), QStringLiteral("C1"), AtNoon));
    }

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }

    void addAccount(const QString& number, const QString& clientNo)
    {
        const StoredAccount account{ number, QStringLiteral("F") + number, QStringLiteral("账户"), clientNo,
            AccountAsset::Ordinary, QStringLiteral("B001"), { { QStringLiteral("XSHG"), QStringLiteral("A1") } } };
        QCOMPARE(AccountStore(*m_database).add(account), Status());
    }

    /// Pages in the log. Pages that are already in the file count until the log is restarted.
    int logFrames()
    {
        int frames = -1;
        const Status status = m_database->read(QStringLiteral("PRAGMA wal_checkpoint(PASSIVE)"), {},
            [&frames](const QSqlQuery& row) { frames = row.value(1).toInt(); });
        return status ? frames : -1;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Database> m_database;
};

QTEST_GUILESS_MAIN(DatabaseTest)
#include "tst_database.moc"
