#include "Database.h"

#include "PostgresEngine.h"
#include "ServerLocation.h"
#include "SqliteEngine.h"

#include <QSqlDriver>

#include <atomic>

namespace {

QString nextConnectionName()
{
    static std::atomic<int> counter{ 0 };
    return QStringLiteral("plandesk-%1").arg(++counter);
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
        return {};
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
    const Status begun = begin(dialect().begin);
    return begun ? finish(work()) : begun;
}

Status Database::snapshot(const std::function<Status()>& work)
{
    const Status begun = begin(dialect().beginSnapshot);
    return begun ? finish(work()) : begun;
}

Status Database::begin(const QString& statement)
{
    m_commitFailed = false;
    m_sinceBegin.start();
    if (!isOpen())
        return notOpen();
    if (Status status = configure(statement); !status) {
        const Status unchanged = m_engine->check();
        return unchanged ? status : unchanged;
    }
    m_inTransaction = true;
    m_failure = Status();
    return {};
}

// The file is looked at before COMMIT, while nothing is stored yet. In an exchanged one, everything else can fail.
Status Database::finish(const Status& worked)
{
    Status status = note(worked);
    if (status)
        status = m_failure;
    if (const Status unchanged = m_engine->check(); !unchanged)
        status = unchanged;
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

// Qt closes a connection that is lost.
Status Database::notOpen() const
{
    return m_location.isEmpty() ? Error::DatabaseNotOpen : Error::ConnectionLost;
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
