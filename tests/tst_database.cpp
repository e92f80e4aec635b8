#include "Database.h"
#include "FaultCount.h"
#include "FaultyDisk.h"
#include "PlanStore.h"
#include "RawFile.h"
#include "SqliteSchema.h"
#include "StoredSample.h"
#include "TestStatus.h"
#include "UserStore.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <unistd.h>

#include <memory>

using namespace StoredSample;

Q_DECLARE_METATYPE(FaultyDisk::Operation)

namespace {

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

bool makeVersionOne(const QString& fileName)
{
    RawFile raw(fileName);
    bool done = true;
    for (const QString& statement : SqliteSchema::migrations().constFirst().statements)
        done = done && raw.run(statement);
    for (const QString& statement : parents())
        done = done && raw.run(statement);
    return done && raw.run(QStringLiteral("PRAGMA application_id = %1").arg(SqliteSchema::applicationId()))
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
        QCOMPARE(database.location(), fileName);
        QVERIFY(QFile::exists(fileName));
    }

    void theConnectionIsDurableAndStrict()
    {
        const auto value = [this](const QString& statement) { return m_database->value(statement)->toString(); };
        QCOMPARE(value(QStringLiteral("PRAGMA journal_mode")), QStringLiteral("wal"));
        QCOMPARE(value(QStringLiteral("PRAGMA synchronous")), QStringLiteral("2"));
        QCOMPARE(value(QStringLiteral("PRAGMA foreign_keys")), QStringLiteral("1"));
        QCOMPARE(value(QStringLiteral("PRAGMA user_version")), QString::number(SqliteSchema::latestVersion()));
        QCOMPARE(value(QStringLiteral(
                     "SELECT count(*) FROM pragma_table_list"
                     " WHERE schema = 'main' AND type = 'table' AND name NOT LIKE 'sqlite%' AND NOT strict")),
            QStringLiteral("0"));
        QVERIFY(!m_database->execute(
            QStringLiteral("INSERT INTO users VALUES (?, ?)"), { QByteArray("\x01"), QStringLiteral("name") }));
    }

    void aReopenedFileKeepsItsPlans()
    {
        const QString id = *PlanStore(*m_database).create(sampleRecord(), AtMorning);
        m_database->close();
        QVERIFY(!m_database->isOpen());
        QCOMPARE(m_database->location(), QString());
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
        QCOMPARE(raw.value(QStringLiteral("PRAGMA user_version")).toInt(), SqliteSchema::latestVersion());
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
        const Status newer(
            Error::NewerDatabase, { QStringLiteral("99"), QString::number(SqliteSchema::latestVersion()) });
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

    // As long as a file keeps its size, its contents are flushed faster.
    void transactionsDoNotExtendTheLog()
    {
        const QString log = path(QStringLiteral("plans.db-wal"));
        PlanStore plans(*m_database);
        m_database->prepareWal();
        const qint64 size = QFileInfo(log).size();
        Database other;
        QCOMPARE(other.open(path(QStringLiteral("plans.db"))), Status());
        int stored = 0;
        for (; QFileInfo(log).size() == size && stored < 60; ++stored)
            QVERIFY(PlanStore(stored % 2 == 0 ? *m_database : other).create(sampleRecord(), AtMorning));
        QVERIFY2(stored > 5 && stored < 60, qPrintable(QString::number(stored)));
        m_database->prepareWal();
        const qint64 extended = QFileInfo(log).size();
        QVERIFY(PlanStore(other).create(sampleRecord(), AtMorning));
        QCOMPARE(QFileInfo(log).size(), extended);
        QCOMPARE(*plans.count(), stored + 1);
    }

    // As after a power failure: the last transaction of the copied log is followed by zeros.
    void aLogWithRoomIsReadToItsLastTransaction()
    {
        PlanStore plans(*m_database);
        m_database->prepareWal();
        for (int i = 0; i < 3; ++i)
            QVERIFY(plans.create(sampleRecord(), AtMorning));
        for (const char* const end : { "", "-wal" })
            QVERIFY(QFile::copy(path(QStringLiteral("plans.db") + QLatin1String(end)),
                path(QStringLiteral("copy.db") + QLatin1String(end))));
        Database copy;
        QCOMPARE(copy.open(path(QStringLiteral("copy.db"))), Status());
        QCOMPARE(*PlanStore(copy).count(), 3);
        QCOMPARE(copy.checkPages(), Status());
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
        UserStore users(*m_database);
        const QString plan = PlanId::fromNumber(1);
        const QString user = QStringLiteral("u1");
        FaultCount count(QStringLiteral("a file ") + QString::fromLatin1(QTest::currentDataTag()));
        const bool isCreated = bool(plans.create(sampleRecord(), AtMorning));
        count.add(isCreated, *plans.count() == 1);
        QVERIFY(isCreated);
        const QString fileName = path(QStringLiteral("plans.db"));
        exchange(fileName, change);
        const Status changed(Error::DatabaseFileChanged);
        const Status created = plans.create(sampleRecord(), AtMorning).status();
        const Status modified = plans.modify(plan, 1, sampleRecord(), AtNoon);
        const Status added = users.add({ user, user });
        m_database->prepareWal();
        count.add(bool(created), *plans.count() == 2);
        count.add(bool(modified), plans.plan(plan)->version == 2);
        count.add(bool(added), users.user(user)->id == user);
        for (const Status& status : { created, modified, added })
            QCOMPARE(status, changed);
        QCOMPARE(*plans.count(), 1);
        QCOMPARE(plans.plan(plan)->version, 1);
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
        const Status created = plans.create(sampleRecord(), AtMorning).status();
        const Status modified = plans.modify(PlanId::fromNumber(1), 1, sampleRecord(), AtNoon);
        m_database->prepareWal();
        m_database->close();
        const bool isWritten = contentOf(fileName) != restored;
        FaultCount count(QStringLiteral("a file copied over ") + QString::fromLatin1(QTest::currentDataTag()));
        for (const Status& status : { created, modified }) {
            count.add(bool(status), isWritten);
            QCOMPARE(status, changed);
        }
        QVERIFY(!isWritten);
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

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }

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
