#include "Database.h"

#include "Schema.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlError>

#include <atomic>

namespace {

// Milliseconds that a statement waits for another client's transaction.
constexpr int busyTimeout = 800;
// A few hundred pages, unless other clients write, too: well before SQLite moves the log by itself, within a
// transaction.
constexpr int transactionsPerWal = 50;

QString nextConnectionName()
{
    static std::atomic<int> counter{ 0 };
    return QStringLiteral("plandesk-%1").arg(++counter);
}

QString reasonOfError(const QSqlError& error)
{
    enum Code { Busy = 5, Locked = 6, ReadOnly = 8, Corrupt = 11, Full = 13, NotADatabase = 26 };
    switch (error.nativeErrorCode().toInt() & 0xff) {
    case Busy:
    case Locked:
        return QStringLiteral("数据库正被其他程序占用，请稍后再试");
    case ReadOnly:
        return QStringLiteral("数据库文件只读，无法写入");
    case Corrupt:
        return QStringLiteral("数据库文件已损坏");
    case Full:
        return QStringLiteral("磁盘空间不足，无法写入数据库");
    case NotADatabase:
        return QStringLiteral("该文件不是数据库文件");
    default:
        return QStringLiteral("数据库操作失败：%1").arg(error.text().trimmed());
    }
}

void bind(QSqlQuery& query, const QVariantList& values)
{
    for (int i = 0; i < values.size(); ++i) {
        const bool nullText = values.at(i).type() == QVariant::String && values.at(i).isNull();
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

QString Database::open(const QString& fileName)
{
    close();
    QString reason = connect(fileName);
    if (reason.isEmpty())
        reason = inspect();
    if (reason.isEmpty())
        reason = configure();
    if (reason.isEmpty())
        reason = migrate();
    if (reason.isEmpty())
        return reason;
    close();
    return QStringLiteral("无法打开数据库“%1”：%2").arg(fileName, reason);
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

QString Database::connect(const QString& fileName)
{
    if (fileName.isEmpty())
        return QStringLiteral("未指定数据库文件");
    if (QFileInfo(fileName).isDir())
        return QStringLiteral("该路径是文件夹");
    if (!QDir().mkpath(QFileInfo(fileName).absolutePath()))
        return QStringLiteral("无法创建所在文件夹");
    m_connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connectionName);
    m_connection.setDatabaseName(fileName);
    m_connection.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(busyTimeout));
    if (!m_connection.open())
        return reasonOfError(m_connection.lastError());
    return QString();
}

// Only reads, so that a file that is refused stays as it was.
QString Database::inspect()
{
    QSqlQuery tables = query(QStringLiteral("SELECT count(*) FROM sqlite_master"));
    if (!tables.isActive())
        return reasonOf(tables);
    const int version = number(QStringLiteral("PRAGMA user_version"));
    const int application = number(QStringLiteral("PRAGMA application_id"));
    const bool fresh = tables.next() && tables.value(0).toInt() == 0 && version == 0 && application == 0;
    if (fresh)
        return QString();
    if (application != Schema::applicationId() || version < 1)
        return QStringLiteral("该文件属于其他程序");
    if (version > Schema::latestVersion())
        return QStringLiteral("数据库版本%1高于本程序支持的版本%2，请升级程序")
            .arg(version)
            .arg(Schema::latestVersion());
    QSqlQuery check = query(QStringLiteral("PRAGMA quick_check(1)"));
    const bool sound = check.next() && check.value(0).toString() == QLatin1String("ok");
    return sound ? QString() : QStringLiteral("数据库文件已损坏");
}

QString Database::configure()
{
    QSqlQuery journal = query(QStringLiteral("PRAGMA journal_mode = WAL"));
    if (!journal.isActive())
        return reasonOf(journal);
    if (!journal.next() || journal.value(0).toString() != QLatin1String("wal"))
        return QStringLiteral("数据库无法启用预写日志");
    journal.finish();
    const QString reason = execute(QStringLiteral("PRAGMA synchronous = FULL"));
    return reason.isEmpty() ? execute(QStringLiteral("PRAGMA foreign_keys = ON")) : reason;
}

QString Database::migrate()
{
    if (number(QStringLiteral("PRAGMA user_version")) == Schema::latestVersion())
        return QString();
    return transaction([this] { return applyMigrations(); });
}

// The version is read again under the write lock: another process may have migrated in the meantime.
QString Database::applyMigrations()
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
        const QString reason = execute(statement);
        if (!reason.isEmpty())
            return QStringLiteral("升级数据库失败，%1").arg(reason);
    }
    return QString();
}

QString Database::transaction(const std::function<QString()>& work)
{
    if (m_inTransaction)
        return work();
    QString reason = execute(QStringLiteral("BEGIN IMMEDIATE"));
    if (!reason.isEmpty())
        return reason;
    m_inTransaction = true;
    reason = work();
    m_inTransaction = false;
    if (reason.isEmpty())
        reason = execute(QStringLiteral("COMMIT"));
    if (reason.isEmpty())
        ++m_committed;
    else
        execute(QStringLiteral("ROLLBACK"));
    return reason;
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

QString Database::execute(const QString& statement, const QVariantList& values)
{
    return reasonOf(query(statement, values));
}

QSqlQuery Database::prepare(const QString& statement)
{
    QSqlQuery result(m_connection);
    result.setForwardOnly(true);
    if (isOpen())
        result.prepare(statement);
    return result;
}

QString Database::executePrepared(QSqlQuery& statement, const QVariantList& values)
{
    if (!statement.lastQuery().isEmpty()) {
        bind(statement, values);
        statement.exec();
    }
    return reasonOf(statement);
}

void Database::prepareWal()
{
    if (!isOpen() || m_inTransaction)
        return;
    const bool isBegun = QFileInfo(fileName() + QStringLiteral("-wal")).size() > 0;
    if (isBegun && (m_committed < transactionsPerWal || !checkpoint()))
        return;
    setBusyTimeout(0);
    if (startWal().isEmpty())
        m_committed = 0;
    setBusyTimeout(busyTimeout);
}

// The first transaction of a log flushes it twice, once for the log's own beginning. This one writes back what it
// reads.
QString Database::startWal()
{
    return transaction([this] {
        const int version = number(QStringLiteral("PRAGMA user_version"));
        return execute(QStringLiteral("PRAGMA user_version = %1").arg(version));
    });
}

void Database::setBusyTimeout(int milliseconds)
{
    execute(QStringLiteral("PRAGMA busy_timeout = %1").arg(milliseconds));
}

/// False while somebody else reads an older state.
bool Database::checkpoint()
{
    QSqlQuery moved = query(QStringLiteral("PRAGMA wal_checkpoint(PASSIVE)"));
    return moved.next() && moved.value(1) == moved.value(2);
}

QString Database::changeToken()
{
    // What a transaction changes may be undone, and the token would stay the same.
    if (m_inTransaction)
        return QString();
    if (m_dataVersion.lastQuery().isEmpty())
        m_dataVersion =
            prepare(QStringLiteral("SELECT total_changes() || '/' || data_version FROM pragma_data_version"));
    if (!executePrepared(m_dataVersion, {}).isEmpty() || !m_dataVersion.next())
        return QString();
    const QString token = m_dataVersion.value(0).toString();
    m_dataVersion.finish();
    return token;
}

QString Database::reasonOf(const QSqlQuery& query)
{
    if (query.isActive())
        return QString();
    return reasonOf(query.lastError());
}

QString Database::reasonOf(const QSqlError& error)
{
    return error.type() == QSqlError::NoError ? QStringLiteral("数据库未打开") : reasonOfError(error);
}

int Database::number(const QString& statement)
{
    QSqlQuery result = query(statement);
    return result.next() ? result.value(0).toInt() : 0;
}
