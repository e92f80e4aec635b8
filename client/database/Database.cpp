#include "Database.h"

#include "PostgresEngine.h"
#include "ServerLocation.h"
#include "SqliteEngine.h"

#include <QSqlDriver>
#include <QSqlError>

#include <atomic>

namespace {

// More than the statements that one operation repeats.
constexpr int MostPrepared = 64;
constexpr qint64 RowsBetweenChecks = 65536;

QString nextConnectionName()
{
    static std::atomic<int> counter{ 0 };
    return QStringLiteral("plandesk-%1").arg(++counter);
}

void bind(QSqlQuery& query, const QVariantList& values)
{
    for (int i = 0; i < values.size(); ++i) {
        // With Qt 6, a variant of a null text is not null, but the driver stores NULL all the same.
        const bool nullText = values.at(i).userType() == QMetaType::QString && values.at(i).toString().isNull();
        query.bindValue(i, nullText ? QVariant(QLatin1String("")) : values.at(i));
    }
}

/// While it exists, the engine limits how long a statement may take.
class LimitedStatement {
public:
    LimitedStatement(DatabaseEngine& engine, qint64 spent)
        : m_engine(engine)
    {
        m_engine.beginStatement(spent);
    }
    ~LimitedStatement() { m_engine.endStatement(); }
    LimitedStatement(const LimitedStatement&) = delete;
    LimitedStatement& operator=(const LimitedStatement&) = delete;

private:
    DatabaseEngine& m_engine;
};

/// Others change the connection or the schema, and cannot be prepared by all engines.
bool isPrepared(const QString& statement, const QVariantList& values, const SqlDialect& dialect)
{
    const bool isLocalFrame = dialect.isLocal && (statement == dialect.begin || statement == dialect.commit);
    return isLocalFrame || !values.isEmpty() || statement.startsWith(QLatin1String("SELECT "))
        || statement.startsWith(QLatin1String("INSERT ")) || statement.startsWith(QLatin1String("UPDATE "))
        || statement.startsWith(QLatin1String("DELETE "));
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

Status Database::open(const QString& location)
{
    return openWith(location, false, {});
}

Status Database::open(const QString& location, const FileIdentity& file)
{
    return openWith(location, false, file);
}

Status Database::setUp(const QString& location)
{
    return openWith(location, true, {});
}

Status Database::openWith(const QString& location, bool migrates, const FileIdentity& file)
{
    close();
    const bool isServer = ServerLocation::isServer(location);
    // A location that is refused may contain a password, so its message does not show it.
    if (Status refused = isServer ? ServerLocation::refusal(location) : Status(); !refused)
        return refused;
    if (isServer)
        m_engine = std::make_unique<PostgresEngine>(*this);
    else
        m_engine = std::make_unique<SqliteEngine>(*this, file);
    const Status status = m_engine->open(m_connection, m_connectionName, location, migrates);
    if (status) {
        m_location = location;
        m_process = m_engine->process();
        return {};
    }
    close();
    return { Error::CannotOpenDatabase, { location }, status };
}

Status Database::reopen()
{
    const QString location = m_location;
    const QString former = m_process;
    Status status = open(location);
    if (status)
        status = endProcess(former);
    if (status)
        return status;
    close();
    m_location = location;
    m_process = former;
    return status;
}

// The process may have committed without notifying the others yet.
Status Database::endProcess(const QString& process)
{
    constexpr int LongestEnd = 1000; // milliseconds
    if (process.isEmpty() || process == m_process)
        return {};
    bool hasEnded = true;
    const Status status =
        read(QStringLiteral("SELECT pg_terminate_backend(pid, ?), pg_notify('plandesk', '')"
                            " FROM pg_stat_activity WHERE pid || '/' || extract(epoch FROM backend_start) = ?"),
            { LongestEnd, process }, [&hasEnded](const QSqlQuery& row) { hasEnded = row.value(0).toBool(); });
    return hasEnded ? status : Status(Error::DatabaseBusy);
}

// The statements go last. Without their connection, they do not ask a server to forget them.
void Database::close()
{
    if (!m_engine)
        return;
    if (isOpen())
        m_engine->prepareClosing();
    m_connection.close();
    m_connection = QSqlDatabase();
    if (QSqlDatabase::contains(m_connectionName))
        QSqlDatabase::removeDatabase(m_connectionName);
    m_prepared.clear();
    m_engine.reset();
    m_location.clear();
    m_process.clear();
}

bool Database::isOpen() const
{
    return m_connection.isOpen();
}

FileIdentity Database::file() const
{
    return m_engine ? m_engine->file() : FileIdentity();
}

Status Database::checkFile()
{
    return isOpen() ? m_engine->check() : Status();
}

QString Database::role() const
{
    return m_engine ? m_engine->role() : QString();
}

const SqlDialect& Database::dialect() const
{
    return m_engine ? m_engine->dialect() : SqlDialect::sqlite();
}

QVariant Database::handle() const
{
    return isOpen() ? m_connection.driver()->handle() : QVariant();
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
    m_sinceBegin.start();
    if (!isOpen())
        return notOpen();
    if (Status status = m_engine->check(); !status)
        return status;
    if (Status status = configure(m_engine->dialect().begin); !status)
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
        status = m_engine->check();
    m_inTransaction = false;
    m_failure = Status();
    if (status) {
        m_isCommitting = true;
        status = configure(m_engine->dialect().commit);
        m_isCommitting = false;
        m_commitFailed = !status;
    }
    if (status)
        m_engine->countCommit();
    else
        m_engine->rollBack();
    return status;
}

Status Database::outcome(const Status& status) const
{
    const bool isUnknown = m_commitFailed && status.error() == Error::ConnectionLost;
    return isUnknown ? Status(Error::OutcomeUnknown, {}, status) : status;
}

Status Database::execute(const QString& statement, const QVariantList& values)
{
    return transaction([&] { return run(statement, values, [](QSqlQuery&) { return Status(); }); });
}

Result<int> Database::change(const QString& statement, const QVariantList& values)
{
    int changed = 0;
    Status status = transaction([&] {
        return run(statement, values, [&changed](const QSqlQuery& query) {
            changed = query.numRowsAffected();
            return Status();
        });
    });
    return status ? Result<int>(changed) : status;
}

Result<qint64> Database::insert(const QString& statement, const QVariantList& values)
{
    if (!m_inTransaction && dialect().nestsChanges)
        return insertAlone(statement, values);
    qint64 number = 0;
    Status status = transaction([&] {
        return read(statement, values, [&number](const QSqlQuery& row) { number = row.value(0).toLongLong(); });
    });
    return status ? Result<qint64>(number) : status;
}

// Without an answer it is not known whether the transaction was committed. All other failures are the server's answer.
Result<qint64> Database::insertAlone(const QString& statement, const QVariantList& values)
{
    m_commitFailed = false;
    m_sinceBegin.start();
    if (!isOpen())
        return notOpen();
    Result<qint64> number = 0;
    {
        const LimitedStatement limited(*m_engine, 0);
        number = m_engine->insertAlone(statement, values);
    }
    m_commitFailed = number.status().error() == Error::ConnectionLost;
    if (number)
        m_engine->countCommit();
    else
        m_engine->rollBack();
    return number;
}

Status Database::read(const QString& statement, const QVariantList& values, const TakeRow& take)
{
    return run(statement, values, [this, &take](QSqlQuery& query) {
        for (qint64 rows = 1; query.next(); ++rows) {
            if (const Status possible = rows % RowsBetweenChecks == 0 ? m_engine->checkRows(rows) : Status(); !possible)
                return note(possible);
            take(query);
        }
        return note(statusOf(!query.lastError().isValid(), query));
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

// A file from elsewhere may have an index without end, which is counted without reading a row.
Result<int> Database::count(const QString& statement, const QVariantList& values)
{
    if (!isOpen())
        return notOpen();
    int counted = 0;
    const Status status = m_engine->withinTime([&] {
        const Result<QVariant> found = value(statement, values);
        counted = found ? found->toInt() : 0;
        return found.status();
    });
    return status ? Result<int>(counted) : status;
}

Result<QStringList> Database::texts(const QString& statement, const QVariantList& values)
{
    QStringList found;
    Status status = read(statement, values, [&found](const QSqlQuery& row) { found << row.value(0).toString(); });
    return status ? Result<QStringList>(found) : status;
}

Status Database::readLocked(const QString& statement, const QVariantList& values, const TakeRow& take)
{
    return read(m_inTransaction ? statement + m_engine->dialect().rowLock : statement, values, take);
}

Status Database::lock(const QString& statement, const QVariantList& values)
{
    const bool locksRows = m_inTransaction && !m_engine->dialect().rowLock.isEmpty();
    return locksRows ? readLocked(statement, values, [](const QSqlQuery&) {}) : Status();
}

Status Database::configure(const QString& statement)
{
    return run(statement, {}, [](QSqlQuery&) { return Status(); });
}

// A statement is prepared once. It is taken out while it runs, because `use` may run the same one. One that fails is
// kept, because a server cannot forget it before the transaction is rolled back.
Status Database::run(const QString& statement, const QVariantList& values, const std::function<Status(QSqlQuery&)>& use)
{
    if (!m_failure)
        return m_failure;
    if (!isOpen())
        return notOpen();
    std::shared_ptr<QSqlQuery> query = m_prepared.take(statement);
    const bool prepares = isPrepared(statement, values, dialect());
    bool done = true;
    bool isReady = prepares;
    {
        const LimitedStatement limited(*m_engine, m_inTransaction || m_isCommitting ? sinceBegin() : 0);
        if (!query) {
            query = std::make_shared<QSqlQuery>(m_connection);
            query->setForwardOnly(m_engine->streamsRows());
            done = prepares ? query->prepare(statement) : query->exec(statement);
            isReady = done && prepares;
        }
        if (isReady) {
            bind(*query, values);
            done = query->exec();
        }
    }
    Status status = note(statusOf(done, *query));
    if (status)
        status = use(*query);
    query->finish();
    if (isReady && (!status || m_prepared.size() < MostPrepared))
        m_prepared.insert(statement, query);
    return status;
}

// Qt closes a connection that is lost.
Status Database::notOpen() const
{
    return m_location.isEmpty() ? Error::DatabaseNotOpen : Error::ConnectionLost;
}

Status Database::statusOf(bool done, const QSqlQuery& query)
{
    return done ? Status() : m_engine->failure(query.lastError());
}

// SQLite ends a transaction by itself when the disk is full or fails. Statements after that would be committed one by
// one.
Status Database::note(const Status& status)
{
    if (!m_inTransaction)
        return status;
    const bool hasEnded = !isOpen() || !m_engine->isInTransaction();
    const Status result = status && hasEnded ? Status(Error::TransactionEnded) : status;
    if (m_failure && !result)
        m_failure = result;
    return result;
}

std::unique_ptr<EngineRows> Database::rows(const QString& statement)
{
    return isOpen() ? m_engine->rows(statement) : nullptr;
}

void Database::interrupt()
{
    if (m_engine)
        m_engine->interrupt();
}

Status Database::watch(const std::function<void()>& noticed)
{
    return isOpen() ? m_engine->watch(noticed) : notOpen();
}

void Database::endWatch()
{
    if (m_engine)
        m_engine->endWatch();
}

Status Database::poll()
{
    if (!isOpen())
        return notOpen();
    return m_inTransaction ? Status() : m_engine->poll();
}

Status Database::checkPages()
{
    return isOpen() ? m_engine->checkPages() : Error::DatabaseNotOpen;
}

void Database::prepareWal()
{
    if (isIdle())
        m_engine->prepareWal();
}

QString Database::contentVersion() const
{
    return isOpen() ? m_engine->contentVersion() : QString();
}

QString Database::changeToken()
{
    // A transaction may be rolled back, and the token would stay the same.
    if (!isIdle())
        return QString();
    const QString watched = m_engine->changeToken();
    if (!watched.isEmpty())
        return watched;
    const auto token = value(m_engine->dialect().changeToken);
    return token ? token->toString() : QString();
}
