#include "Database.h"
#include "FaultCount.h"
#include "LoggedTest.h"
#include "Market.h"
#include "RawFile.h"
#include "SecurityStore.h"
#include "SqliteSchema.h"
#include "TestStatus.h"
#include "UntrustedFile.h"
#include "UserStore.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include <sqlite3.h>
#include <sys/stat.h>

#include <cstdio>

namespace {

constexpr int LongestCheck = 5; // seconds
// A check in milliseconds, and what a busy machine adds.
constexpr int LongestRefusal = 3000;
constexpr qint64 GiB = qint64(1) << 30;

const QByteArray Endless = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n)";

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

QByteArray makeOwn(int version)
{
    return "PRAGMA application_id = " + QByteArray::number(SqliteSchema::applicationId())
        + "; PRAGMA user_version = " + QByteArray::number(version);
}

bool makeVersion(const QString& file, int version)
{
    RawFile raw(file);
    bool done = raw.execute("PRAGMA synchronous = OFF; " + makeOwn(version)) == SQLITE_OK;
    for (const Migration& migration : SqliteSchema::migrations()) {
        for (const QString& statement : migration.statements)
            done = done && (migration.version > version || raw.execute(statement.toUtf8()) == SQLITE_OK);
    }
    return done;
}

/// Changes a statement of the schema in place.
QByteArray rewritten(const char* table, const char* from, const char* to)
{
    return QByteArray("PRAGMA writable_schema = ON; UPDATE sqlite_master SET sql = replace(sql, '") + from + "', '" + to
        + "') WHERE name = '" + table + "'; PRAGMA writable_schema = RESET";
}

void add16(QByteArray& page, int value)
{
    page += static_cast<char>(value >> 8);
    page += static_cast<char>(value & 0xff);
}

void add32(QByteArray& page, int value)
{
    add16(page, value >> 16);
    add16(page, value & 0xffff);
}

constexpr int PageSize = 512;
constexpr int FileHeader = 100;

/// A leaf of the schema's tree with some rows of the first page.
QByteArray leaf(const QByteArray& first, int firstRow, int rows)
{
    const int content = qFromBigEndian<quint16>(first.constData() + FileHeader + 5);
    QByteArray page("\x0d\0\0", 3);
    add16(page, rows);
    add16(page, content);
    page += '\0';
    page += first.mid(FileHeader + 8 + 2 * firstRow, 2 * rows);
    return page + QByteArray(content - page.size(), '\0') + first.mid(content);
}

/// An inner page whose children are one page, except for the first one.
QByteArray inner(const QByteArray& header, int firstChild, int child)
{
    constexpr int Children = 40;
    constexpr int Cell = 5;
    QByteArray page = header + QByteArray("\x05\0\0", 3);
    add16(page, Children);
    add16(page, PageSize - Children * Cell);
    page += '\0';
    add32(page, child);
    for (int i = 0; i < Children; ++i)
        add16(page, PageSize - (Children - i) * Cell);
    page += QByteArray(PageSize - Children * Cell - page.size(), '\0');
    for (int i = 0; i < Children; ++i) {
        add32(page, i == 0 ? firstChild : child);
        page += '\x01';
    }
    return page;
}

/// An inner page of an index whose children are one page.
QByteArray innerOfIndex(int child)
{
    constexpr int Children = 40;
    constexpr int Cell = 7;
    QByteArray page("\x02\0\0", 3);
    add16(page, Children);
    add16(page, PageSize - Children * Cell);
    page += '\0';
    add32(page, child);
    for (int i = 0; i < Children; ++i)
        add16(page, PageSize - (Children - i) * Cell);
    page += QByteArray(PageSize - Children * Cell - page.size(), '\0');
    for (int i = 0; i < Children; ++i) {
        add32(page, child);
        // A record of two bytes with NULL.
        page += QByteArray("\x02\x02\0", 3);
    }
    return page;
}

/// A file whose schema has a few pages and rows without end: every inner page leads to the next one many times.
QByteArray endlessSchema(const QString& file)
{
    constexpr int Levels = 10;
    RawFile(file).execute("PRAGMA page_size = 512; " + makeOwn(1) + "; CREATE TABLE t (x UNIQUE)");
    QByteArray content = contentOf(file);
    const QByteArray first = content.left(PageSize);
    const int leaves = content.size() / PageSize + 1;
    content += leaf(first, 0, 2) + leaf(first, 1, 1);
    for (int i = 0; i < Levels; ++i) {
        const int below = i == 0 ? leaves + 1 : content.size() / PageSize;
        content += inner(QByteArray(), below, below);
    }
    const int pages = content.size() / PageSize;
    QByteArray header = first.left(FileHeader);
    qToBigEndian<qint32>(pages, header.data() + 28);
    return content.replace(0, PageSize, inner(header, leaves, pages));
}

/// A file of the present schema whose securities have a few pages and rows without end.
QByteArray endlessSecurities(const QString& file)
{
    constexpr int Levels = 10;
    const auto make = [&file] {
        RawFile raw(file);
        bool done =
            raw.execute("PRAGMA page_size = 512; PRAGMA synchronous = OFF; " + makeOwn(SqliteSchema::latestVersion()))
            == SQLITE_OK;
        for (const Migration& migration : SqliteSchema::migrations()) {
            for (const QString& statement : migration.statements)
                done = done && raw.execute(statement.toUtf8()) == SQLITE_OK;
        }
        done = done
            && raw.execute("INSERT INTO securities VALUES (1, '600000.SH', 'n', 't', 's', 'e', 2, 1, 100, 100, '', '')")
                == SQLITE_OK;
        return done ? raw.value(QStringLiteral("SELECT rootpage FROM sqlite_master WHERE name = 'securities'")).toInt()
                    : 0;
    };
    const int root = make();
    QByteArray content = contentOf(file);
    if (root == 0)
        return {};
    const int start = (root - 1) * PageSize;
    content += content.mid(start, PageSize);
    for (int i = 0; i < Levels; ++i) {
        const int below = content.size() / PageSize;
        content += inner(QByteArray(), below, below);
    }
    const int pages = content.size() / PageSize;
    QByteArray number(4, '\0');
    qToBigEndian<qint32>(pages, number.data());
    return content.replace(start, PageSize, inner(QByteArray(), pages, pages)).replace(28, 4, number);
}

/// A file of the present schema in which an index of securities leads to the same pages without end.
QByteArray endlessIndex(const QString& file)
{
    constexpr int Levels = 10;
    makeVersion(file, SqliteSchema::latestVersion());
    RawFile raw(file);
    raw.execute("INSERT INTO securities VALUES (1, '600000.SH', 'n', 't', 's', 'e', 2, 1, 100, 100, '', '')");
    raw.execute("PRAGMA journal_mode = DELETE; PRAGMA page_size = 512; VACUUM");
    const int root =
        raw.value(QStringLiteral("SELECT rootpage FROM sqlite_master WHERE type = 'index' AND tbl_name = 'securities'"))
            .toInt();
    QByteArray content = contentOf(file);
    const int start = (root - 1) * PageSize;
    content += content.mid(start, PageSize);
    for (int i = 0; i < Levels; ++i)
        content += innerOfIndex(content.size() / PageSize);
    const int pages = content.size() / PageSize;
    QByteArray number(4, '\0');
    qToBigEndian<qint32>(pages, number.data());
    return content.replace(start, PageSize, innerOfIndex(pages)).replace(28, 4, number);
}

} // namespace

/// Databases that another program made or changed.
class UntrustedFileTest : public LoggedTest {
    Q_OBJECT

private:
    void tidyUp() override { m_folder = std::make_unique<QTemporaryDir>(); }

private Q_SLOTS:
    void initTestCase() { m_folder = std::make_unique<QTemporaryDir>(); }

    void aFileWithAnotherSchemaIsRefusedAndStays_data()
    {
        QTest::addColumn<QByteArray>("change");
        QTest::addColumn<Status>("cause");
        const auto row = [](const char* name, const QByteArray& change, Error error, const char* kind,
                             const char* object) {
            QTest::newRow(name) << change << Status(error, { QString::fromUtf8(kind), QString::fromUtf8(object) });
        };
        row("a trigger that writes", "CREATE TRIGGER t AFTER INSERT ON users BEGIN DELETE FROM positions; END",
            Error::UnknownObject, "触发器", "t");
        row("a trigger that takes hours",
            "CREATE TRIGGER t AFTER INSERT ON users BEGIN SELECT count(*) FROM securities a, securities b,"
            " securities c, securities d; END",
            Error::UnknownObject, "触发器", "t");
        row("a view", "CREATE VIEW v AS SELECT 1", Error::UnknownObject, "视图", "v");
        row("an endless view in the place of a table",
            "DROP TABLE static_texts; CREATE VIEW static_texts AS " + Endless
                + " SELECT i AS category, i AS key, i AS text FROM n",
            Error::UnknownObject, "视图", "static_texts");
        row("a table", "CREATE TABLE t (x)", Error::UnknownObject, "表", "t");
        row("a table with a long name", "CREATE TABLE " + QByteArray(500, 't') + " (x)", Error::UnknownObject, "表",
            QByteArray(64, 't').constData());
        row("a virtual table", "CREATE VIRTUAL TABLE v USING fts5(x)", Error::UnknownObject, "表", "v");
        row("statistics that mislead the planner", "ANALYZE", Error::UnknownObject, "表", "sqlite_stat1");
        row("an index on a function", "CREATE INDEX i ON users (upper(name))", Error::UnknownObject, "索引", "i");
        row("another column", "ALTER TABLE users ADD COLUMN x TEXT", Error::ChangedObject, "表", "users");
        row("a generated column", "ALTER TABLE users ADD COLUMN x TEXT AS (upper(name))", Error::ChangedObject, "表",
            "users");
        row("a check that calls a function",
            rewritten("users", "name TEXT NOT NULL", "name TEXT NOT NULL CHECK (length(upper(name)) > 0)"),
            Error::ChangedObject, "表", "users");
        row("a column that may be empty",
            rewritten("securities", "quantity_step INTEGER NOT NULL", "quantity_step INTEGER"), Error::ChangedObject,
            "表", "securities");
        row("a table less", "DROP TABLE positions", Error::MissingObject, "表", "positions");
    }

    void aFileWithAnotherSchemaIsRefusedAndStays()
    {
        QFETCH(QByteArray, change);
        QFETCH(Status, cause);
        for (const int version : { 1, SqliteSchema::latestVersion() }) {
            const QString file = path(QStringLiteral("version%1.db").arg(version));
            QVERIFY(makeVersion(file, version));
            QCOMPARE(RawFile(file).execute(change), SQLITE_OK);
            const QByteArray content = contentOf(file);
            QCOMPARE(causeOfRefusal(file, LongestRefusal), cause);
            const bool isUnchanged = contentOf(file) == content;
            m_files.addFile(isUnchanged);
            QVERIFY(isUnchanged);
        }
    }

    void filesOfEveryVersionAreOpened()
    {
        for (const Migration& migration : SqliteSchema::migrations()) {
            const QString file = path(QStringLiteral("version%1.db").arg(migration.version));
            QVERIFY(makeVersion(file, migration.version));
            Database database;
            QCOMPARE(database.open(file), Status());
            QCOMPARE(database.open(file), Status());
        }
    }

    void theHistoryOfAnOlderFileIsKept()
    {
        constexpr int FirstWithHistory = 6;
        const QString file = path(QStringLiteral("history.db"));
        QVERIFY(makeVersion(file, FirstWithHistory));
        const QByteArray insert = "INSERT INTO history (event, subject, user, time, client)"
                                  " VALUES ('signed', 'p', 'u', '2024-05-06T01:30:00.125Z', 'c')";
        QCOMPARE(RawFile(file).execute("INSERT INTO users VALUES ('u', 'u'); " + insert + "; " + insert), SQLITE_OK);
        Database database;
        QCOMPARE(database.open(file), Status());
        QCOMPARE(database.execute(QString::fromLatin1(insert)), Status());
        QCOMPARE(*database.texts(QStringLiteral("SELECT number || event || subject FROM history ORDER BY number"), {}),
            (QStringList{ QStringLiteral("1signedp"), QStringLiteral("2signedp"), QStringLiteral("3signedp") }));
        QVERIFY(!database.execute(QStringLiteral("UPDATE history SET user = 'x'")));
        QVERIFY(!database.execute(QStringLiteral("DELETE FROM history")));
    }

    void aSchemaWithoutEndIsRefusedInTime()
    {
        const QString file = path(QStringLiteral("endless.db"));
        const QByteArray content = endlessSchema(file);
        QVERIFY(writeFile(file, content));
        QVERIFY(content.size() < 20 * PageSize);
        QCOMPARE(causeOfRefusal(file, LongestCheck * 1000 + LongestRefusal),
            Status(Error::InspectionTooLong, { QString::number(LongestCheck) }));
        const bool isUnchanged = contentOf(file) == content;
        m_files.addFile(isUnchanged);
        QVERIFY(isUnchanged);
    }

    void securitiesWithoutEndAreDamage()
    {
        const QString file = path(QStringLiteral("securities.db"));
        const QByteArray content = endlessSecurities(file);
        QVERIFY(writeFile(file, content));
        Database database;
        QCOMPARE(database.open(file), Status());
        // None of the rows counts as stored.
        FaultCount count(QStringLiteral("reads of rows without end"));
        Market market;
        const Status loaded = market.load(database);
        count.add(bool(loaded), false);
        QCOMPARE(loaded, Status(Error::DatabaseCorrupt));
        // Any other table could be as endless.
        int rows = 0;
        const auto take = [&rows](const QSqlQuery&) { ++rows; };
        const Status read = database.read(QStringLiteral("SELECT name FROM securities"), {}, take);
        count.add(bool(read), false);
        QCOMPARE(read, Status(Error::DatabaseCorrupt));
        QVERIFY(rows < 1000 * content.size() / PageSize + 65536);
    }

    void anIndexWithoutEndIsNotCountedForever()
    {
        const QString file = path(QStringLiteral("index.db"));
        const QByteArray content = endlessIndex(file);
        QVERIFY(writeFile(file, content));
        Database database;
        QCOMPARE(database.open(file), Status());
        FaultCount count(QStringLiteral("counts of an index without end"));
        QElapsedTimer timer;
        timer.start();
        const Result<int> counted = SecurityStore(database).count();
        count.add(bool(counted), false);
        QVERIFY2(timer.elapsed() < LongestCheck * 1000 + LongestRefusal, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(counted.status(), Status(Error::InspectionTooLong, { QString::number(LongestCheck) }));
        // The connection can be used afterwards.
        QCOMPARE(UserStore(database).users()->size(), 0);
    }

    void whatIsNoFileIsRefused_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<Status>("cause");
        QTest::newRow("a folder") << QStringLiteral("folder") << Status(Error::DatabaseIsFolder);
        QTest::newRow("a link to a folder") << QStringLiteral("folder-link") << Status(Error::DatabaseIsFolder);
        QTest::newRow("a pipe") << QStringLiteral("pipe") << Status(Error::NotAFile);
        QTest::newRow("a link to a pipe") << QStringLiteral("pipe-link") << Status(Error::NotAFile);
        QTest::newRow("a device without end") << QStringLiteral("device-link") << Status(Error::NotAFile);
        QTest::newRow("a link to nothing") << QStringLiteral("dangling-link") << Status(Error::NotAFile);
        QTest::newRow("a link to itself") << QStringLiteral("loop-link") << Status(Error::NotAFile);
        QTest::newRow("a log that is a pipe") << QStringLiteral("piped.db") << Status(Error::NotAFile);
        QTest::newRow("a log that is a link") << QStringLiteral("linked.db") << Status(Error::NotAFile);
        QTest::newRow("an enormous file") << QStringLiteral("enormous.db") << tooLarge();
        QTest::newRow("an enormous log") << QStringLiteral("logged.db") << tooLarge();
    }

    void whatIsNoFileIsRefused()
    {
        QFETCH(QString, name);
        QFETCH(Status, cause);
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
        makePipe(QStringLiteral("pipe"));
        const QString victim = path(QStringLiteral("victim"));
        QVERIFY(writeFile(victim, "mine"));
        for (const char* const target : { "folder", "pipe", "dangling", "loop" }) {
            const bool isLoop = qstrcmp(target, "loop") == 0;
            const QString link = path(QLatin1String(target) + QStringLiteral("-link"));
            QVERIFY(QFile::link(isLoop ? link : path(QLatin1String(target)), link));
        }
        QVERIFY(QFile::link(QStringLiteral("/dev/zero"), path(QStringLiteral("device-link"))));
        for (const char* const file : { "piped.db", "linked.db", "enormous.db", "logged.db" })
            QVERIFY(makeVersion(path(QLatin1String(file)), SqliteSchema::latestVersion()));
        makePipe(QStringLiteral("piped.db-wal"));
        QVERIFY(QFile::link(victim, path(QStringLiteral("linked.db-wal"))));
        QVERIFY(QFile::resize(path(QStringLiteral("enormous.db")), 65 * GiB));
        QVERIFY(writeFile(path(QStringLiteral("logged.db-wal")), QByteArray()));
        QVERIFY(QFile::resize(path(QStringLiteral("logged.db-wal")), 65 * GiB));

        QCOMPARE(causeOfRefusal(path(name), LongestRefusal), cause);
        const bool isUnchanged = contentOf(victim) == "mine";
        m_files.addFile(isUnchanged);
        QVERIFY(isUnchanged);
        QVERIFY(!QFileInfo::exists(path(QStringLiteral("dangling"))));
    }

    void aLinkToADatabaseIsOpenedAndNotFollowedElsewhere()
    {
        const QString link = path(QStringLiteral("link.db"));
        for (const char* const name : { "first.db", "second.db" })
            QVERIFY(makeVersion(path(QLatin1String(name)), SqliteSchema::latestVersion()));
        QVERIFY(QFile::link(path(QStringLiteral("first.db")), link));
        Database database;
        QCOMPARE(database.open(link), Status());
        QVERIFY(QFileInfo::exists(path(QStringLiteral("first.db-wal"))));
        QCOMPARE(UserStore(database).add({ QStringLiteral("u1"), QStringLiteral("u1") }), Status());
        QVERIFY(QFile::remove(link));
        QVERIFY(QFile::link(path(QStringLiteral("second.db")), link));
        QCOMPARE(UserStore(database).add({ QStringLiteral("u2"), QStringLiteral("u2") }),
            Status(Error::DatabaseFileChanged));
    }

    void aRowThatIsTooLongIsReportedAndNotRead()
    {
        const QString file = path(QStringLiteral("long.db"));
        QVERIFY(makeVersion(file, SqliteSchema::latestVersion()));
        QCOMPARE(RawFile(file).execute("INSERT INTO users VALUES ('u', hex(zeroblob(15000000)))"), SQLITE_OK);
        sqlite3_memory_highwater(1);
        Database database;
        Status status = database.open(file);
        if (status)
            status = UserStore(database).users().status();
        else
            status = status.cause();
        QCOMPARE(status, Status(Error::ContentTooLarge));
        QVERIFY2(
            sqlite3_memory_highwater(0) < 16 * 1024 * 1024, qPrintable(QString::number(sqlite3_memory_highwater(0))));
    }

    void aFileDoesNotSayHowMuchOfItIsKeptInMemory()
    {
        const QString file = path(QStringLiteral("cached.db"));
        QVERIFY(makeVersion(file, SqliteSchema::latestVersion()));
        QCOMPARE(RawFile(file).execute("PRAGMA default_cache_size = 1000000000"), SQLITE_OK);
        Database database;
        QCOMPARE(database.open(file), Status());
        QCOMPARE(database.value(QStringLiteral("PRAGMA cache_size"))->toInt(), -2000);
    }

    void statementsAreInterruptedAfterATime()
    {
        RawFile file(QStringLiteral(":memory:"));
        const auto runEndless = [&file] {
            return file.execute(Endless + " SELECT max(i) FROM n") == SQLITE_INTERRUPT ? Status(Error::DatabaseFailed)
                                                                                       : Status();
        };
        QCOMPARE(UntrustedFile::withinSeconds(1, file.connection(), runEndless),
            Status(Error::InspectionTooLong, { QStringLiteral("1") }));
        QCOMPARE(file.execute("SELECT 1"), SQLITE_OK);
        const auto fails = [] { return Status(Error::DatabaseCorrupt); };
        QCOMPARE(UntrustedFile::withinSeconds(1, file.connection(), fails), Status(Error::DatabaseCorrupt));
    }

    void theCheckOfPagesIsInterruptedAfterATime()
    {
        RawFile file(path(QStringLiteral("pages.db")));
        QCOMPARE(file.execute("PRAGMA page_size = 512; CREATE TABLE t (x); INSERT INTO t VALUES (zeroblob(50000000))"),
            SQLITE_OK);
        // One check may end before it is interrupted.
        const auto check = [&file] {
            int code = SQLITE_OK;
            for (int i = 0; i < 1000 && code == SQLITE_OK; ++i)
                code = file.execute("PRAGMA quick_check");
            return code == SQLITE_INTERRUPT ? Status(Error::DatabaseFailed) : Status();
        };
        QCOMPARE(UntrustedFile::withinSeconds(0, file.connection(), check),
            Status(Error::InspectionTooLong, { QStringLiteral("0") }));
    }

    void contentsCannotExhaustTheMemoryOrChangeTheSchema()
    {
        RawFile file(QStringLiteral(":memory:"));
        QCOMPARE(file.execute("CREATE TABLE t (x); SELECT length(zeroblob(20000000))"), SQLITE_OK);
        UntrustedFile::restrict(file.connection());
        QCOMPARE(file.execute("SELECT length(zeroblob(20000000))"), SQLITE_TOOBIG);
        QCOMPARE(file.execute("PRAGMA writable_schema = ON; UPDATE sqlite_master SET sql = ''"), SQLITE_ERROR);
        int trusted = -1;
        sqlite3_db_config(file.connection(), SQLITE_DBCONFIG_TRUSTED_SCHEMA, -1, &trusted);
        QCOMPARE(trusted, 0);
        QCOMPARE(sqlite3_malloc64(GiB / 2 + 1), nullptr);
        void* const memory = sqlite3_malloc64(GiB / 4);
        QVERIFY(memory);
        sqlite3_free(memory);
    }

private:
    static Status tooLarge() { return { Error::DatabaseTooLarge, { QStringLiteral("64") } }; }
    QString path(const QString& name) const { return m_folder->filePath(name); }
    void makePipe(const QString& name) const { QCOMPARE(::mkfifo(QFile::encodeName(path(name)).constData(), 0600), 0); }

    /// Why a file is not opened within a time in milliseconds; success if it is opened.
    static Status causeOfRefusal(const QString& file, int longest)
    {
        QElapsedTimer timer;
        timer.start();
        Database database;
        const Status opened = database.open(file);
        const qint64 elapsed = timer.elapsed();
        if (elapsed > longest)
            return { Error::InspectionTooLong, { QStringLiteral("%1 ms").arg(elapsed) } };
        std::printf("%s, refused after %d ms: %s\n",
            QTest::currentDataTag() ? QTest::currentDataTag() : QTest::currentTestFunction(), int(elapsed),
            qPrintable(errorText(opened)));
        return opened ? Status() : opened.cause();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    FaultCount m_files{ QStringLiteral("hostile files") };
};

QTEST_GUILESS_MAIN(UntrustedFileTest)
#include "tst_untrusted_file.moc"
