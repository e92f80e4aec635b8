// How a database file is opened: checked, configured and migrated.
#include "Database.h"
#include "PrivateFiles.h"
#include "Schema.h"
#include "SqliteStatus.h"
#include "UntrustedFile.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlRecord>
#include <QThread>

#include <sqlite3.h>

namespace {

// Between two attempts to start the log of a new file, in milliseconds.
constexpr int RetryInterval = 10;
// Pages in memory, in negative KiB.
constexpr int CacheSize = -2000;
// In seconds. The schema takes milliseconds; the pages of a million plans a few seconds.
constexpr int LongestSchemaCheck = 5;
constexpr int LongestPageCheck = 120;

} // namespace

Status Database::openFile(const QString& fileName)
{
    if (Status status = connect(fileName); !status)
        return status;
    if (Status status = inspect(); !status)
        return status;
    if (Status status = prepareConnection(); !status)
        return status;
    // The first read of a new file creates its log.
    const Result<int> version = number(QStringLiteral("PRAGMA user_version"));
    if (!version)
        return version.status();
    if (Status status = m_files.remember(connection(), fileName); !status)
        return status;
    if (*version == Schema::latestVersion())
        return {};
    m_files.forget();
    if (Status status = transaction([this] { return applyMigrations(); }); !status)
        return status;
    return m_files.remember(connection(), fileName);
}

Status Database::connect(const QString& fileName)
{
    if (fileName.isEmpty())
        return Error::NoDatabaseFile;
    if (Status status = UntrustedFile::checkFiles(fileName); !status)
        return status;
    if (!PrivateFiles::makeFolder(QFileInfo(fileName).absolutePath()))
        return Error::CannotCreateFolder;
    if (!QFileInfo::exists(fileName))
        PrivateFiles::makeFile(fileName);
    LockWaits::limitPauses();
    m_connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connectionName);
    m_connection.setDatabaseName(fileName);
    if (!m_connection.open())
        return SqliteStatus::of(m_connection.lastError());
    UntrustedFile::restrict(connection());
    m_waits.setLimit(BusyTimeout);
    m_waits.apply(connection());
    return {};
}

// Only reads, so that a refused file stays unchanged.
Status Database::inspect()
{
    const auto within = [this](int seconds, Status (Database::*check)()) {
        return UntrustedFile::withinSeconds(seconds, connection(), [this, check] { return (this->*check)(); });
    };
    // One state of the file, although another client may migrate it meanwhile.
    Status status = configure(QStringLiteral("BEGIN"));
    if (status)
        status = within(LongestSchemaCheck, &Database::checkSchema);
    rollBack();
    if (!status)
        return status;
    const Result<int> version = number(QStringLiteral("PRAGMA user_version"));
    if (!version)
        return version.status();
    return *version < Schema::latestVersion() ? within(LongestPageCheck, &Database::checkPages) : status;
}

Status Database::checkSchema()
{
    const Result<int> tables = number(QStringLiteral("SELECT count(*) FROM sqlite_master"));
    if (!tables)
        return tables.status();
    const Result<int> version = number(QStringLiteral("PRAGMA user_version"));
    if (!version)
        return version.status();
    const Result<int> application = number(QStringLiteral("PRAGMA application_id"));
    if (!application)
        return application.status();
    if (Status status = checkVersion(*tables, *version, *application); !status)
        return status;
    if (Status status = UntrustedFile::checkSchema(connection(), *version); !status)
        return status;
    // Otherwise the file says how much of it is kept in memory.
    return configure(QStringLiteral("PRAGMA cache_size = %1").arg(CacheSize));
}

Status Database::checkVersion(int tables, int version, int application)
{
    if (tables == 0 && version == 0 && application == 0)
        return {};
    if (application != Schema::applicationId() || version < 1)
        return Error::ForeignDatabase;
    if (version > Schema::latestVersion())
        return { Error::NewerDatabase, { QString::number(version), QString::number(Schema::latestVersion()) } };
    return {};
}

Status Database::checkPages()
{
    const Result<QVariant> check = value(QStringLiteral("PRAGMA quick_check(1)"));
    if (!check)
        return check.status();
    return check->toString() == QLatin1String("ok") ? Status() : Error::DatabaseCorrupt;
}

Status Database::prepareConnection()
{
    if (Status status = startWalMode(); !status)
        return status;
    if (Status status = configure(QStringLiteral("PRAGMA synchronous = FULL")); !status)
        return status;
    // Triggers on deletion then also refuse to replace a row.
    if (Status status = configure(QStringLiteral("PRAGMA recursive_triggers = ON")); !status)
        return status;
    return configure(QStringLiteral("PRAGMA foreign_keys = ON"));
}

// Two first starts of the same new file stop each other at once, without waiting for the lock.
Status Database::startWalMode()
{
    QElapsedTimer waiting;
    waiting.start();
    for (;;) {
        const Result<QVariant> mode = value(QStringLiteral("PRAGMA journal_mode = WAL"));
        if (mode && mode->toString() == QLatin1String("wal"))
            return {};
        if (!mode && mode.status().error() != Error::DatabaseBusy)
            return mode.status();
        if (waiting.hasExpired(BusyTimeout))
            return mode ? Error::NoWriteAheadLog : Error::DatabaseBusy;
        QThread::msleep(RetryInterval);
    }
}

// Reads the version again under the write lock: another process may have migrated the file in the meantime.
Status Database::applyMigrations()
{
    const Result<int> version = number(QStringLiteral("PRAGMA user_version"));
    if (!version)
        return version.status();
    for (const Migration& migration : Schema::migrations()) {
        const Status status = migration.version > *version ? migrate(migration) : Status();
        if (!status)
            return { Error::MigrationFailed, {}, status };
    }
    return execute(QStringLiteral("PRAGMA application_id = %1").arg(Schema::applicationId()));
}

Status Database::migrate(const Migration& migration)
{
    for (const Obstacle& obstacle : migration.obstacles) {
        if (Status status = refuse(obstacle); !status)
            return status;
    }
    for (const QString& statement : migration.statements) {
        if (Status status = execute(statement); !status)
            return status;
    }
    return execute(QStringLiteral("PRAGMA user_version = %1").arg(migration.version));
}

Status Database::refuse(const Obstacle& obstacle)
{
    QStringList found;
    Status status = read(obstacle.query + QStringLiteral(" LIMIT 1"), {}, [&found](const QSqlQuery& row) {
        for (int column = 0; column < row.record().count(); ++column)
            found << row.value(column).toString();
    });
    return status && !found.isEmpty() ? Status(obstacle.error, found) : status;
}
