#include "UntrustedFile.h"

#include "SqliteSchema.h"
#include "SqliteStatus.h"

#include <QFileInfo>
#include <QHash>
#include <QMap>
#include <QMutex>
#include <QPair>
#include <QSemaphore>
#include <QThread>

#include <sqlite3.h>

#include <atomic>
#include <memory>

namespace {

// Far above what the client stores.
constexpr qint64 GiB = qint64(1) << 30;
constexpr qint64 LargestFile = 64 * GiB;
constexpr int LongestValue = 16 * 1024 * 1024;
constexpr int LongestStatement = 1024 * 1024;
constexpr int MostColumns = 100;
constexpr int DeepestExpression = 100;
// Of all connections of the process together.
constexpr qint64 LargestMemory = GiB / 2;
constexpr int InterruptInterval = 5; // milliseconds
constexpr int LongestShownName = 64;

struct Closer {
    void operator()(sqlite3* connection) const { sqlite3_close(connection); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

/// Kind and name.
using Object = QPair<QString, QString>;
/// Called with an object and the statement that created it.
using TakeObject = std::function<Status(const Object& object, const QString& statement)>;

Status failure(sqlite3* connection)
{
    return SqliteStatus::last(connection);
}

QString text(sqlite3_stmt* row, int column)
{
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(row, column)));
}

Status readObjects(sqlite3* connection, const TakeObject& take)
{
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(connection, "SELECT type, name, sql FROM sqlite_master", -1, &prepared, nullptr)
        != SQLITE_OK)
        return failure(connection);
    const std::unique_ptr<sqlite3_stmt, Closer> statement(prepared);
    int code = sqlite3_step(prepared);
    for (; code == SQLITE_ROW; code = sqlite3_step(prepared)) {
        if (Status status = take({ text(prepared, 0), text(prepared, 1) }, text(prepared, 2)); !status)
            return status;
    }
    return code == SQLITE_DONE ? Status() : failure(connection);
}

/// Runs the steps up to a version in memory.
Status makeVersion(sqlite3* connection, int version)
{
    QStringList statements{ QStringLiteral("PRAGMA foreign_keys = ON") };
    for (const Migration& migration : SqliteSchema::migrations()) {
        if (migration.version <= version)
            statements += migration.statements;
    }
    for (const QString& statement : qAsConst(statements)) {
        if (sqlite3_exec(connection, statement.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
            return failure(connection);
    }
    return {};
}

Status makeObjects(int version, QMap<Object, QString>& objects)
{
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(":memory:", &opened, SQLITE_OPEN_READWRITE, nullptr);
    const std::unique_ptr<sqlite3, Closer> connection(opened);
    if (code != SQLITE_OK)
        return failure(opened);
    if (Status status = makeVersion(opened, version); !status)
        return status;
    return readObjects(opened, [&objects](const Object& object, const QString& statement) {
        objects.insert(object, statement);
        return Status();
    });
}

// A program opens several connections; the objects are made once.
Status objectsOfVersion(int version, QMap<Object, QString>& objects)
{
    static QMutex mutex;
    static QHash<int, QMap<Object, QString>> known;
    const QMutexLocker lock(&mutex);
    if (!known.contains(version)) {
        QMap<Object, QString> made;
        if (Status status = makeObjects(version, made); !status)
            return status;
        known.insert(version, made);
    }
    objects = known.value(version);
    return {};
}

QString kindName(const QString& kind)
{
    static const QMap<QString, QString> names{
        { QStringLiteral("table"), QStringLiteral(QT_TRANSLATE_NOOP("Caption", "表")) },
        { QStringLiteral("index"), QStringLiteral(QT_TRANSLATE_NOOP("Caption", "索引")) },
        { QStringLiteral("view"), QStringLiteral(QT_TRANSLATE_NOOP("Caption", "视图")) },
        { QStringLiteral("trigger"), QStringLiteral(QT_TRANSLATE_NOOP("Caption", "触发器")) },
    };
    return names.value(kind, kind.left(LongestShownName));
}

Status refusal(Error error, const Object& object)
{
    return { error, { kindName(object.first), object.second.left(LongestShownName) } };
}

} // namespace

Status UntrustedFile::checkFiles(const QString& database)
{
    const QFileInfo file(database);
    if (file.isDir())
        return Error::DatabaseIsFolder;
    // SQLite keeps the companions beside the target of a link, and does not follow links that are companions.
    const QString target = file.exists() ? file.canonicalFilePath() : file.absoluteFilePath();
    for (const char* const suffix : { "", "-wal", "-shm", "-journal" }) {
        const QFileInfo present(target + QLatin1String(suffix));
        if (present.isSymLink() || (present.exists() && !present.isFile()))
            return Error::NotAFile;
        if (present.size() > LargestFile)
            return { Error::DatabaseTooLarge, { QString::number(LargestFile / GiB) } };
    }
    return {};
}

void UntrustedFile::restrict(sqlite3* connection)
{
    sqlite3_hard_heap_limit64(LargestMemory);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_exec(connection, "PRAGMA cell_size_check = ON", nullptr, nullptr, nullptr);
    sqlite3_limit(connection, SQLITE_LIMIT_LENGTH, LongestValue);
    sqlite3_limit(connection, SQLITE_LIMIT_SQL_LENGTH, LongestStatement);
    sqlite3_limit(connection, SQLITE_LIMIT_COLUMN, MostColumns);
    sqlite3_limit(connection, SQLITE_LIMIT_EXPR_DEPTH, DeepestExpression);
}

Status UntrustedFile::checkSchema(sqlite3* connection, int version)
{
    QMap<Object, QString> missing;
    if (Status status = objectsOfVersion(version, missing); !status)
        return status;
    const Status status = readObjects(connection, [&missing](const Object& object, const QString& statement) {
        const auto expected = missing.constFind(object);
        if (expected == missing.cend())
            return refusal(Error::UnknownObject, object);
        if (*expected != statement)
            return refusal(Error::ChangedObject, object);
        missing.remove(object);
        return Status();
    });
    // The last one is a table rather than an index of it.
    return status && !missing.isEmpty() ? refusal(Error::MissingObject, missing.lastKey()) : status;
}

// From another thread: SQLite 3.40 does not call a progress handler while it walks through the pages. An interruption
// only ends statements that run, so it is repeated.
Status UntrustedFile::checkVersion(int application, int version)
{
    if (application != SqliteSchema::applicationId() || version < 1)
        return Error::ForeignDatabase;
    const int latest = SqliteSchema::latestVersion();
    return version > latest ? Status(Error::NewerDatabase, { QString::number(version), QString::number(latest) })
                            : Status();
}

Status UntrustedFile::withinSeconds(int seconds, sqlite3* connection, const std::function<Status()>& work)
{
    QSemaphore done;
    std::atomic_bool hasExpired{ false };
    const std::unique_ptr<QThread> watch(QThread::create([&] {
        hasExpired = !done.tryAcquire(1, seconds * 1000);
        while (hasExpired && !done.tryAcquire(1, InterruptInterval))
            sqlite3_interrupt(connection);
    }));
    watch->start();
    const Status status = work();
    done.release();
    watch->wait();
    if (!status && hasExpired)
        return { Error::InspectionTooLong, { QString::number(seconds) } };
    return status;
}
