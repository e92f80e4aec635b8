#include "Database.h"

#include "PrivateFiles.h"
#include "Schema.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlError>

#include <atomic>

namespace {

// How long a statement waits for another client's transaction, in milliseconds.
constexpr int BusyTimeout = 800;
// A few hundred pages, unless other clients write, too: well before SQLite's automatic checkpoint within a transaction.
constexpr int TransactionsPerWal = 50;

QString nextConnectionName()
{
    static std::atomic<int> counter{ 0 };
    return QStringLiteral("plandesk-%1").arg(++counter);
}

Status statusOfError(const QSqlError& error)
{
    enum Code { Busy = 5, Locked = 6, ReadOnly = 8, Corrupt = 11, Full = 13, NotADatabase = 26 };
    switch (error.nativeErrorCode().toInt() & 0xff) {
    case Busy:
    case Locked:
        return Error::DatabaseBusy;
    case ReadOnly:
        return Error::DatabaseReadOnly;
    case Corrupt:
        return Error::DatabaseCorrupt;
    case Full:
        return Error::DiskFull;
    case NotADatabase:
        return Error::NotADatabase;
    default:
        return { Error::DatabaseFailed, { error.text().trimmed() } };
    }
}

void bind(QSqlQuery& query, const QVariantList& values)
{
    for (int i = 0; i < values.size(); ++i) {
        const bool nullText = values.at(i).userType() == QMetaType::QString && values.at(i).isNull();
        query.bindValue(i, nullText ? QVariant(QLatin1String("")) : values.at(i));
    }
}

} // namespace

Database::Database()
    : m_connectionName(nextConnectionName())
{
}

Database::~Database()
{
    close();
}

Status Database::open(const QString& fileName)
{
    close();
    Status status = openFile(fileName);
    if (status)
        return status;
    close();
    return { Error::CannotOpenDatabase, { fileName }, status };
}

void Database::close()
{
    if (!m_connection.isValid())
        return;
    m_dataVersion = QSqlQuery();
    m_committed = 0;
    m_connection.close();
    m_connection = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_connectionName);
}

bool Database::isOpen() const
{
    return m_connection.isOpen();
}

QString Database::fileName() const
{
    return m_connection.isValid() ? m_connection.databaseName() : QString();
}

QVariant Database::handle() const
{
    return m_connection.driver()->handle();
}

Status Database::openFile(const QString& fileName)
{
    if (Status status = connect(fileName); !status)
        return status;
    if (Status status = inspect(); !status)
        return status;
    if (Status status = configure(); !status)
        return status;
    return migrate();
}

Status Database::connect(const QString& fileName)
{
    if (fileName.isEmpty())
        return Error::NoDatabaseFile;
    if (QFileInfo(fileName).isDir())
        return Error::DatabaseIsFolder;
    if (!PrivateFiles::makeFolder(QFileInfo(fileName).absolutePath()))
        return Error::CannotCreateFolder;
    if (!QFileInfo::exists(fileName))
        PrivateFiles::makeFile(fileName);
    m_connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connectionName);
    m_connection.setDatabaseName(fileName);
    m_connection.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(BusyTimeout));
    if (!m_connection.open())
        return statusOfError(m_connection.lastError());
    return {};
}

// Only reads, so that a refused file stays unchanged.
Status Database::inspect()
{
    QSqlQuery tables = query(QStringLiteral("SELECT count(*) FROM sqlite_master"));
    if (!tables.isActive())
        return statusOf(tables);
    const int version = number(QStringLiteral("PRAGMA user_version"));
    const int application = number(QStringLiteral("PRAGMA application_id"));
    const bool fresh = tables.next() && tables.value(0).toInt() == 0 && version == 0 && application == 0;
    if (fresh)
        return {};
    if (application != Schema::applicationId() || version < 1)
        return Error::ForeignDatabase;
    if (version > Schema::latestVersion())
        return { Error::NewerDatabase, { QString::number(version), QString::number(Schema::latestVersion()) } };
    QSqlQuery check = query(QStringLiteral("PRAGMA quick_check(1)"));
    const bool sound = check.next() && check.value(0).toString() == QLatin1String("ok");
    return sound ? Status() : Error::DatabaseCorrupt;
}

Status Database::configure()
{
    QSqlQuery journal = query(QStringLiteral("PRAGMA journal_mode = WAL"));
    if (!journal.isActive())
        return statusOf(journal);
    if (!journal.next() || journal.value(0).toString() != QLatin1String("wal"))
        return Error::NoWriteAheadLog;
    journal.finish();
    if (Status status = execute(QStringLiteral("PRAGMA synchronous = FULL")); !status)
        return status;
    return execute(QStringLiteral("PRAGMA foreign_keys = ON"));
}

Status Database::migrate()
{
    if (number(QStringLiteral("PRAGMA user_version")) == Schema::latestVersion())
        return {};
    return transaction([this] { return applyMigrations(); });
}

// Reads the version again under the write lock: another process may have migrated the file in the meantime.
Status Database::applyMigrations()
{
    const int version = number(QStringLiteral("PRAGMA user_version"));
    QStringList statements;
    for (const Schema::Migration& migration : Schema::migrations()) {
        if (migration.version > version)
            statements += migration.statements;
    }
    statements << QStringLiteral("PRAGMA application_id = %1").arg(Schema::applicationId())
               << QStringLiteral("PRAGMA user_version = %1").arg(Schema::latestVersion());
    for (const QString& statement : qAsConst(statements)) {
        if (Status status = execute(statement); !status)
            return { Error::MigrationFailed, {}, status };
    }
    return {};
}

Status Database::transaction(const std::function<Status()>& work)
{
    if (m_inTransaction)
        return work();
    Status status = execute(QStringLiteral("BEGIN IMMEDIATE"));
    if (!status)
        return status;
    m_inTransaction = true;
    status = work();
    m_inTransaction = false;
    if (status)
        status = execute(QStringLiteral("COMMIT"));
    if (status)
        ++m_committed;
    else
        query(QStringLiteral("ROLLBACK"));
    return status;
}

QSqlQuery Database::query(const QString& statement, const QVariantList& values)
{
    QSqlQuery result(m_connection);
    result.setForwardOnly(true);
    if (isOpen() && result.prepare(statement)) {
        bind(result, values);
        result.exec();
    }
    return result;
}

Status Database::execute(const QString& statement, const QVariantList& values)
{
    return statusOf(query(statement, values));
}

QSqlQuery Database::prepare(const QString& statement)
{
    QSqlQuery result(m_connection);
    result.setForwardOnly(true);
    if (isOpen())
        result.prepare(statement);
    return result;
}

Status Database::executePrepared(QSqlQuery& statement, const QVariantList& values)
{
    if (!statement.lastQuery().isEmpty()) {
        bind(statement, values);
        statement.exec();
    }
    return statusOf(statement);
}

void Database::prepareWal()
{
    if (!isOpen() || m_inTransaction)
        return;
    const bool isBegun = QFileInfo(fileName() + QStringLiteral("-wal")).size() > 0;
    if (isBegun && (m_committed < TransactionsPerWal || !checkpoint()))
        return;
    setBusyTimeout(0);
    if (startWal())
        m_committed = 0;
    setBusyTimeout(BusyTimeout);
}

// The first transaction of a log flushes it twice, once for the log's header. This one writes the version unchanged.
Status Database::startWal()
{
    return transaction([this] {
        const int version = number(QStringLiteral("PRAGMA user_version"));
        return execute(QStringLiteral("PRAGMA user_version = %1").arg(version));
    });
}

void Database::setBusyTimeout(int milliseconds)
{
    query(QStringLiteral("PRAGMA busy_timeout = %1").arg(milliseconds));
}

/// False while another connection reads an older state.
bool Database::checkpoint()
{
    QSqlQuery moved = query(QStringLiteral("PRAGMA wal_checkpoint(PASSIVE)"));
    return moved.next() && moved.value(1) == moved.value(2);
}

QString Database::changeToken()
{
    // A transaction may be rolled back, and the token would stay the same.
    if (m_inTransaction)
        return QString();
    if (m_dataVersion.lastQuery().isEmpty())
        m_dataVersion =
            prepare(QStringLiteral("SELECT total_changes() || '/' || data_version FROM pragma_data_version"));
    if (!executePrepared(m_dataVersion, {}) || !m_dataVersion.next())
        return QString();
    const QString token = m_dataVersion.value(0).toString();
    m_dataVersion.finish();
    return token;
}

Status Database::statusOf(const QSqlQuery& query)
{
    return query.isActive() ? Status() : statusOf(query.lastError());
}

Status Database::statusOf(const QSqlError& error)
{
    return error.type() == QSqlError::NoError ? Error::DatabaseNotOpen : statusOfError(error);
}

int Database::number(const QString& statement)
{
    QSqlQuery result = query(statement);
    return result.next() ? result.value(0).toInt() : 0;
}
