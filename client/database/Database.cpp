#include "Database.h"

#include "SqliteStatus.h"

#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlError>

#include <sqlite3.h>

#include <atomic>
#include <limits>

namespace {

// A few hundred pages, unless other clients write, too: well before SQLite's automatic checkpoint within a transaction.
constexpr int TransactionsPerWal = 50;
// More than the statements that one operation repeats.
constexpr int MostPrepared = 64;
QString nextConnectionName()
{
    static std::atomic<int> counter{ 0 };
    return QStringLiteral("plandesk-%1").arg(++counter);
}

void bind(QSqlQuery& query, const QVariantList& values)
{
    for (int i = 0; i < values.size(); ++i) {
        const bool nullText = values.at(i).userType() == QMetaType::QString && values.at(i).isNull();
        query.bindValue(i, nullText ? QVariant(QLatin1String("")) : values.at(i));
    }
}

/// Others change the connection or the schema and do so when they are prepared.
bool isRepeated(const QString& statement)
{
    return statement.startsWith(QLatin1String("SELECT ")) || statement.startsWith(QLatin1String("INSERT "))
        || statement.startsWith(QLatin1String("UPDATE ")) || statement.startsWith(QLatin1String("DELETE "));
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
    const Status status = openFile(fileName);
    if (status)
        return {};
    close();
    return { Error::CannotOpenDatabase, { fileName }, status };
}

void Database::close()
{
    if (!m_connection.isValid())
        return;
    // The last connection moves the log to the database and deletes it, by its name, which may be another file's now.
    if (isOpen() && !m_files.check())
        sqlite3_db_config(connection(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    m_files.forget();
    m_committed = 0;
    m_prepared.clear();
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

sqlite3* Database::connection() const
{
    const QVariant handle = isOpen() ? m_connection.driver()->handle() : QVariant();
    if (qstrcmp(handle.typeName(), "sqlite3*") != 0)
        return nullptr;
    return *static_cast<sqlite3* const*>(handle.constData());
}

Status Database::transaction(const std::function<Status()>& work)
{
    if (m_inTransaction)
        return note(work());
    if (Status status = begin(); !status)
        return status;
    return finish(work());
}

Status Database::begin()
{
    m_commitFailed = false;
    if (Status status = m_files.check(); !status)
        return status;
    if (Status status = configure(QStringLiteral("BEGIN IMMEDIATE")); !status)
        return status;
    m_inTransaction = true;
    m_failure = Status();
    return {};
}

// The file is looked at before COMMIT, while nothing is stored yet.
Status Database::finish(const Status& worked)
{
    Status status = note(worked);
    if (status)
        status = m_failure;
    if (status)
        status = m_files.check();
    m_inTransaction = false;
    m_failure = Status();
    if (status) {
        status = configure(QStringLiteral("COMMIT"));
        m_commitFailed = !status;
    }
    if (status)
        ++m_committed;
    else
        rollBack();
    return status;
}

void Database::rollBack()
{
    if (isOpen() && !sqlite3_get_autocommit(connection()))
        sqlite3_exec(connection(), "ROLLBACK", nullptr, nullptr, nullptr);
}

Status Database::execute(const QString& statement, const QVariantList& values)
{
    return transaction([&] { return run(statement, values, [](QSqlQuery&) { return Status(); }); });
}

Result<int> Database::change(const QString& statement, const QVariantList& values)
{
    int changed = 0;
    Status status = transaction([&] {
        return run(statement, values, [&changed](QSqlQuery& query) {
            changed = query.numRowsAffected();
            return Status();
        });
    });
    return status ? Result<int>(changed) : status;
}

Result<qint64> Database::insert(const QString& statement, const QVariantList& values)
{
    qint64 number = 0;
    Status status = transaction([&] {
        return run(statement, values, [&number](QSqlQuery& query) {
            number = query.lastInsertId().toLongLong();
            return Status();
        });
    });
    return status ? Result<qint64>(number) : status;
}

Status Database::read(const QString& statement, const QVariantList& values, const TakeRow& take)
{
    return run(statement, values, [this, &take](QSqlQuery& query) {
        while (query.next())
            take(query);
        return note(query.lastError().isValid() ? SqliteStatus::of(query.lastError()) : Status());
    });
}

Result<QVariant> Database::value(const QString& statement, const QVariantList& values)
{
    QVariant found;
    Status status = read(statement, values, [&found](const QSqlQuery& row) {
        if (!found.isValid())
            found = row.value(0);
    });
    return status ? Result<QVariant>(found) : status;
}

Result<QStringList> Database::texts(const QString& statement, const QVariantList& values)
{
    QStringList found;
    Status status = read(statement, values, [&found](const QSqlQuery& row) { found << row.value(0).toString(); });
    return status ? Result<QStringList>(found) : status;
}

Status Database::prepare(const QString& statement, QSqlQuery& prepared)
{
    if (!isOpen())
        return Error::DatabaseNotOpen;
    prepared = QSqlQuery(m_connection);
    return note(prepared.prepare(statement) ? Status() : SqliteStatus::of(prepared.lastError()));
}

Status Database::executePrepared(QSqlQuery& prepared, const QVariantList& values)
{
    if (!m_failure)
        return m_failure;
    bind(prepared, values);
    return note(prepared.exec() ? Status() : explained(SqliteStatus::of(prepared.lastError())));
}

Status Database::configure(const QString& statement)
{
    return run(statement, {}, [](QSqlQuery&) { return Status(); });
}

// A statement is prepared once. It is taken out while it runs, because `use` may run the same one.
Status Database::run(const QString& statement, const QVariantList& values, const std::function<Status(QSqlQuery&)>& use)
{
    if (!m_failure)
        return m_failure;
    if (!isOpen())
        return Error::DatabaseNotOpen;
    std::shared_ptr<QSqlQuery> query = m_prepared.take(statement);
    bool done = true;
    if (!query) {
        query = std::make_shared<QSqlQuery>(m_connection);
        query->setForwardOnly(true);
        done = query->prepare(statement);
    }
    if (done) {
        bind(*query, values);
        done = query->exec();
    }
    Status status = note(done ? Status() : explained(SqliteStatus::of(query->lastError())));
    if (status)
        status = use(*query);
    query->finish();
    if (status && isRepeated(statement) && m_prepared.size() < MostPrepared)
        m_prepared.insert(statement, query);
    return status;
}

// SQLite ends a transaction by itself when the disk is full or fails. Statements after that would be committed one by
// one.
Status Database::note(const Status& status)
{
    if (!m_inTransaction)
        return status;
    const bool hasEnded = !isOpen() || sqlite3_get_autocommit(connection()) != 0;
    const Status result = status && hasEnded ? Status(Error::TransactionEnded) : status;
    if (m_failure && !result)
        m_failure = result;
    return result;
}

// SQLite reports the end of the row numbers like a full disk.
Status Database::explained(const Status& failure)
{
    // Qt passes on codes without their details.
    if (failure.error() == Error::DatabaseReadOnly)
        return SqliteStatus::last(connection());
    if (failure.error() != Error::DiskFull)
        return failure;
    QSqlQuery used(m_connection);
    const bool atEnd = used.exec(QStringLiteral("SELECT max(seq) FROM sqlite_sequence")) && used.next()
        && used.value(0).toLongLong() == std::numeric_limits<qint64>::max();
    return atEnd ? Error::NumbersExhausted : failure;
}

void Database::prepareWal()
{
    if (!isIdle() || !m_files.check())
        return;
    const bool isBegun = QFileInfo(fileName() + QStringLiteral("-wal")).size() > 0;
    if (isBegun && (m_committed < TransactionsPerWal || !checkpoint()))
        return;
    m_waits.setLimit(0);
    if (startWal())
        m_committed = 0;
    m_waits.setLimit(BusyTimeout);
}

// The first transaction of a log flushes it twice, once for the log's header. This one writes the version unchanged.
Status Database::startWal()
{
    return transaction([this]() -> Status {
        const Result<int> version = number(QStringLiteral("PRAGMA user_version"));
        if (!version)
            return version.status();
        return execute(QStringLiteral("PRAGMA user_version = %1").arg(*version));
    });
}

/// False while another connection reads an older state.
bool Database::checkpoint()
{
    int frames = 0;
    int moved = 0;
    const int code = sqlite3_wal_checkpoint_v2(connection(), nullptr, SQLITE_CHECKPOINT_PASSIVE, &frames, &moved);
    return code == SQLITE_OK && frames == moved;
}

QString Database::changeToken()
{
    // A transaction may be rolled back, and the token would stay the same.
    if (!isIdle())
        return QString();
    const auto token = value(QStringLiteral("SELECT total_changes() || '/' || data_version FROM pragma_data_version"));
    return token ? token->toString() : QString();
}

Result<int> Database::number(const QString& statement)
{
    const Result<QVariant> found = value(statement);
    return found ? Result<int>(found->toInt()) : found.status();
}
