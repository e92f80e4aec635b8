#include "PostgresEngine.h"

#include "Database.h"
#include "PostgresSchema.h"
#include "PostgresStatus.h"
#include "ServerLocation.h"

#include <QSqlDriver>
#include <QSqlError>

#include <libpq-fe.h>

#include <array>

namespace {

// In milliseconds. A transaction that is left open blocks others.
constexpr int LongestStatement = 4000;
constexpr int LongestLock = 3000;
constexpr int LongestIdleTransaction = 60000;
// Of the clients that set up the same database at once, one works and the others wait.
constexpr int SetUpLock = 0x504C444B; // "PLDK"

const QString Channel = QStringLiteral("plandesk");

struct Clearer {
    void operator()(PGresult* result) const { PQclear(result); }
};
using Answer = std::unique_ptr<PGresult, Clearer>;

class PostgresRows : public EngineRows {
public:
    PostgresRows(PGconn* connection, const QString& statement)
        : m_answer(PQexec(connection, statement.toUtf8().constData()))
    {
        if (PQresultStatus(m_answer.get()) != PGRES_TUPLES_OK)
            m_status = PostgresStatus::of(connection, m_answer.get());
    }

    bool next() override { return ++m_row < PQntuples(m_answer.get()); }
    const Status& status() const override { return m_status; }

    QByteArray bytes(int column) const override
    {
        return QByteArray::fromRawData(
            PQgetvalue(m_answer.get(), m_row, column), PQgetlength(m_answer.get(), m_row, column));
    }

    bool isNull(int column) const override { return PQgetisnull(m_answer.get(), m_row, column) != 0; }
    qint64 number(int column) const override { return bytes(column).toLongLong(); }

private:
    const Answer m_answer;
    Status m_status;
    int m_row = -1;
};

} // namespace

PostgresEngine::PostgresEngine(Database& database)
    : m_database(database)
{
}

Status PostgresEngine::open(QSqlDatabase& connection, const QString& name, const QString& location, bool migrates)
{
    if (Status status = connect(connection, name, location); !status)
        return status;
    if (Status status = prepareConnection(); !status)
        return status;
    return migrates ? m_database.transaction([this] { return applyMigrations(); }) : checkVersion();
}

Status PostgresEngine::connect(QSqlDatabase& connection, const QString& name, const QString& location)
{
    const QString driver = QStringLiteral("QPSQL");
    if (!QSqlDatabase::isDriverAvailable(driver))
        return Error::NoServerDriver;
    connection = QSqlDatabase::addDatabase(driver, name);
    ServerLocation::apply(location, connection);
    if (!connection.open())
        return { Error::NoConnection, { PostgresStatus::firstLine(connection.lastError().databaseText()) } };
    m_driver = connection.driver();
    m_connection = *static_cast<PGconn* const*>(m_driver->handle().constData());
    return {};
}

Status PostgresEngine::prepareConnection()
{
    const auto role = m_database.value(
        QStringLiteral("SELECT session_user, set_config('search_path', 'plandesk', false),"
                       " set_config('statement_timeout', '%1', false), set_config('lock_timeout', '%2', false),"
                       " set_config('idle_in_transaction_session_timeout', '%3', false)")
            .arg(LongestStatement)
            .arg(LongestLock)
            .arg(LongestIdleTransaction));
    m_role = role ? role->toString() : QString();
    return role.status();
}

Result<int> PostgresEngine::version()
{
    const auto exists = m_database.value(QStringLiteral("SELECT to_regclass('plandesk.schema_version') IS NOT NULL"));
    if (!exists || !exists->toBool())
        return exists ? Result<int>(0) : exists.status();
    const auto version = m_database.value(QStringLiteral("SELECT version FROM schema_version"));
    return version ? Result<int>(version->toInt()) : version.status();
}

Status PostgresEngine::checkVersion()
{
    const Result<int> present = version();
    if (!present)
        return present.status();
    if (*present == 0)
        return Error::ServerNotSetUp;
    const int latest = PostgresSchema::latestVersion();
    const QStringList versions{ QString::number(*present), QString::number(latest) };
    if (*present > latest)
        return { Error::NewerDatabase, versions };
    return *present < latest ? Status(Error::OlderDatabase, versions) : Status();
}

Status PostgresEngine::applyMigrations()
{
    if (Status status = m_database.configure(
            QStringLiteral("SET LOCAL statement_timeout = 0; SET LOCAL lock_timeout = 0;"
                           " SET LOCAL client_min_messages = warning;"
                           " SELECT pg_advisory_xact_lock(%1); CREATE SCHEMA IF NOT EXISTS plandesk")
                .arg(SetUpLock));
        !status)
        return { Error::MigrationFailed, {}, status };
    const Result<int> present = version();
    if (!present)
        return present.status();
    for (const Migration& migration : PostgresSchema::migrations()) {
        const Status status = migration.version > *present ? migrate(migration) : Status();
        if (!status)
            return { Error::MigrationFailed, {}, status };
    }
    return checkVersion();
}

Status PostgresEngine::migrate(const Migration& migration)
{
    for (const QString& statement : migration.statements) {
        if (Status status = m_database.configure(statement); !status)
            return status;
    }
    return m_database.execute(QStringLiteral("UPDATE schema_version SET version = ?"), { migration.version });
}

bool PostgresEngine::isInTransaction() const
{
    return PQtransactionStatus(m_connection) == PQTRANS_INTRANS;
}

void PostgresEngine::rollBack()
{
    const PGTransactionStatusType state = PQtransactionStatus(m_connection);
    if (state == PQTRANS_INTRANS || state == PQTRANS_INERROR)
        const Answer done(PQexec(m_connection, "ROLLBACK"));
}

std::unique_ptr<EngineRows> PostgresEngine::rows(const QString& statement)
{
    return std::make_unique<PostgresRows>(m_connection, statement);
}

Status PostgresEngine::failure(const QSqlError& error)
{
    return PostgresStatus::of(m_connection, error);
}

void PostgresEngine::interrupt()
{
    const std::unique_ptr<PGcancel, void (*)(PGcancel*)> cancel(PQgetCancel(m_connection), PQfreeCancel);
    std::array<char, 256> text{};
    PQcancel(cancel.get(), text.data(), text.size());
}

// The driver passes on its notices one by one and must not be used, or even closed, in between.
Status PostgresEngine::watch(const std::function<void()>& noticed)
{
    m_watch = std::make_unique<QObject>();
    const auto pass = [watch = m_watch.get(), noticed](
                          const QString&, QSqlDriver::NotificationSource source, const QVariant&) {
        if (source != QSqlDriver::SelfSource)
            QMetaObject::invokeMethod(watch, noticed, Qt::QueuedConnection);
    };
    const auto notification =
        QOverload<const QString&, QSqlDriver::NotificationSource, const QVariant&>::of(&QSqlDriver::notification);
    QObject::connect(m_driver, notification, m_watch.get(), pass);
    return m_driver->subscribeToNotification(Channel) ? Status() : failure(m_driver->lastError());
}

void PostgresEngine::endWatch()
{
    m_watch.reset();
    if (PQstatus(m_connection) == CONNECTION_OK)
        m_driver->unsubscribeFromNotification(Channel);
}
