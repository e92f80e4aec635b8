#include "PostgresEngine.h"

#include "Database.h"
#include "PostgresSchema.h"
#include "PostgresStatus.h"
#include "ServerLocation.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSocketNotifier>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>

#include <fcntl.h>
#include <libpq-fe.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

// In milliseconds. A transaction that is left open blocks others.
constexpr int LongestStatement = 2000;
constexpr int LongestLock = 1500;
constexpr int LongestIdleTransaction = 60000;
// How long the client waits for a server that does not answer. A call that waits for locks first gets less, so that its
// statements together take less than five seconds.
constexpr qint64 LongestCall = 2500;
constexpr std::chrono::milliseconds LongestOpening(4000); // longer than libpq waits for a connection
constexpr qint64 LongestTransaction = 4000;
constexpr qint64 ShortestCall = 1000;
constexpr qint64 LongestPing = 1800;
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

/// The values of a prepared statement as libpq takes them.
class Parameters {
public:
    explicit Parameters(const QVariantList& values)
    {
        for (const QVariant& value : values) {
            const bool isNull = value.isNull() && value.userType() != QMetaType::QString;
            m_bytes << (isNull ? QByteArray() : value.toString().toUtf8());
            m_texts << (isNull ? nullptr : m_bytes.constLast().constData());
        }
    }

    int count() const { return m_texts.size(); }
    const char* const* texts() const { return m_texts.constData(); }

private:
    QVector<QByteArray> m_bytes;
    QVector<const char*> m_texts;
};

/// libpq's connection of a driver; null before there is one.
PGconn* handleOf(const QSqlDriver& driver)
{
    const QVariant handle = driver.handle();
    return handle.isValid() ? *static_cast<PGconn* const*>(handle.constData()) : nullptr;
}

/// Finds the driver's notifier of a socket when it is first activated.
class SocketWatch : public QObject {
public:
    SocketWatch(int socket, const std::function<void(QSocketNotifier*)>& found)
        : m_socket(socket)
        , m_found(found)
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* const notifier = event->type() == QEvent::SockAct ? qobject_cast<QSocketNotifier*>(watched) : nullptr;
        if (notifier && notifier->socket() == m_socket) {
            QCoreApplication::instance()->removeEventFilter(this);
            m_found(notifier);
        }
        return false;
    }

private:
    const qintptr m_socket;
    const std::function<void(QSocketNotifier*)> m_found;
};

} // namespace

PostgresEngine::PostgresEngine(Database& database)
    : m_database(database)
{
}

// Qt 5 leaves the notifier of a lost connection behind.
PostgresEngine::~PostgresEngine()
{
    delete m_notifier.data();
    if (m_socket >= 0)
        ::close(m_socket);
}

Status PostgresEngine::open(QSqlDatabase& connection, const QString& name, const QString& location, bool migrates)
{
    m_isLimited = !migrates && !m_database.isPatient();
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
    m_driver = connection.driver();
    {
        // Libpq limits the time until there is a connection, but the driver sends statements before it returns.
        const auto socket = [driver = m_driver] { return PQsocket(handleOf(*driver)); };
        const StallGuard::Call call(socket, LongestOpening);
        if (!connection.open())
            return { Error::NoConnection, { PostgresStatus::firstLine(connection.lastError().databaseText()) } };
    }
    m_connection = handleOf(*m_driver);
    if (PQstatus(m_connection) != CONNECTION_OK)
        return { Error::NoConnection, { PostgresStatus::firstLine(QString::fromUtf8(PQerrorMessage(m_connection))) } };
    m_socket = fcntl(PQsocket(m_connection), F_DUPFD_CLOEXEC, 0);
    return {};
}

Status PostgresEngine::prepareConnection()
{
    return m_database.read(
        QStringLiteral("SELECT session_user, pg_backend_pid() || '/' || (SELECT extract(epoch FROM backend_start)"
                       " FROM pg_stat_activity WHERE pid = pg_backend_pid()),"
                       " set_config('search_path', 'plandesk', false), set_config('statement_timeout', '%1', false),"
                       " set_config('lock_timeout', '%2', false),"
                       " set_config('idle_in_transaction_session_timeout', '%3', false),"
                       " set_config('default_transaction_isolation', 'read committed', false),"
                       " set_config('default_transaction_read_only', 'off', false),"
                       " set_config('plandesk.notifies', 'after commit', false)")
            .arg(LongestStatement)
            .arg(LongestLock)
            .arg(LongestIdleTransaction),
        {}, [this](const QSqlQuery& row) {
            m_role = row.value(0).toString();
            m_process = row.value(1).toString();
        });
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
    if (state != PQTRANS_INTRANS && state != PQTRANS_INERROR)
        return;
    beginStatement(0);
    const Answer done(PQexec(m_connection, "ROLLBACK"));
    endStatement();
}

std::unique_ptr<EngineRows> PostgresEngine::rows(const QString& statement)
{
    beginStatement(0);
    auto rows = std::make_unique<PostgresRows>(m_connection, statement);
    endStatement();
    return rows;
}

// The messages that Qt sends for a prepared statement and its transaction would each wait for an answer. Each part of a
// pipeline is a transaction: the statement is answered when it is stored, and the server notifies after that, even if
// the client ends. The answer to the notice is taken before the next statement, like that to a ping.
Result<qint64> PostgresEngine::insertAlone(const QString& statement, const QVariantList& values)
{
    const Result<QString> name = prepared(statement);
    if (!name)
        return name.status();
    const Parameters parameters(values);
    PQenterPipelineMode(m_connection);
    PQsendQueryPrepared(
        m_connection, name->toLatin1().constData(), parameters.count(), parameters.texts(), nullptr, nullptr, 0);
    PQpipelineSync(m_connection);
    PQsendQueryParams(m_connection, "SELECT plandesk.notify_of_changes()", 0, nullptr, nullptr, nullptr, nullptr, 0);
    PQpipelineSync(m_connection);
    m_ping.start();
    return storedNumber();
}

/// The number that the first part of a pipeline returns; 0 if there is no row.
Result<qint64> PostgresEngine::storedNumber()
{
    Result<qint64> number = 0;
    while (PQstatus(m_connection) == CONNECTION_OK) {
        const Answer answer(PQgetResult(m_connection));
        const ExecStatusType state = PQresultStatus(answer.get());
        if (state == PGRES_PIPELINE_SYNC)
            return number;
        if (state == PGRES_TUPLES_OK && PQntuples(answer.get()) > 0)
            number = QByteArray(PQgetvalue(answer.get(), 0, 0)).toLongLong();
        else if (answer && state != PGRES_TUPLES_OK)
            number = PostgresStatus::of(m_connection, answer.get());
    }
    return Error::ConnectionLost;
}

/// The name of a prepared statement, whose placeholders are numbered.
Result<QString> PostgresEngine::prepared(const QString& statement)
{
    const QString known = m_prepared.value(statement);
    if (!known.isEmpty())
        return known;
    const QString name = QStringLiteral("alone_%1").arg(m_prepared.size());
    const QStringList parts = statement.split(QLatin1Char('?'));
    QString text = QStringLiteral("PREPARE ") + name + QStringLiteral(" AS ") + parts.constFirst();
    for (int i = 1; i < parts.size(); ++i)
        text += QLatin1Char('$') + QString::number(i) + parts.at(i);
    QSqlQuery query(m_driver->createResult());
    if (!query.exec(text))
        return failure(query.lastError());
    m_prepared.insert(statement, name);
    return name;
}

Status PostgresEngine::failure(const QSqlError& error)
{
    return PostgresStatus::of(m_connection, error);
}

void PostgresEngine::beginStatement(qint64 spent)
{
    finishPing();
    if (m_isLimited)
        m_call.emplace(
            m_socket, std::chrono::milliseconds(qBound(ShortestCall, LongestTransaction - spent, LongestCall)));
}

void PostgresEngine::endStatement()
{
    m_call.reset();
    silenceWhenLost();
}

// A server that cannot be reached would not learn that a statement is to be cancelled.
void PostgresEngine::interrupt()
{
    ::shutdown(m_socket, SHUT_RDWR);
}

Status PostgresEngine::watch(const std::function<void()>& noticed)
{
    m_watch = std::make_unique<SocketWatch>(PQsocket(m_connection), [this](auto* notifier) { takeNotifier(notifier); });
    m_noticed = noticed;
    const auto pass = [this](const QString&, QSqlDriver::NotificationSource source, const QVariant&) {
        if (source == QSqlDriver::SelfSource)
            return;
        ++m_notices;
        noticeLater();
    };
    const auto notification =
        QOverload<const QString&, QSqlDriver::NotificationSource, const QVariant&>::of(&QSqlDriver::notification);
    QObject::connect(m_driver, notification, m_watch.get(), pass);
    beginStatement(0);
    const bool done = m_driver->subscribeToNotification(Channel);
    endStatement();
    return done ? poll() : failure(m_driver->lastError());
}

// Another connection counts from the beginning.
QString PostgresEngine::changeToken() const
{
    return m_watch ? QStringLiteral("%1/%2/%3").arg(PQbackendPID(m_connection)).arg(m_notices).arg(m_commits)
                   : QString();
}

void PostgresEngine::endWatch()
{
    m_watch.reset();
    if (PQstatus(m_connection) != CONNECTION_OK)
        return;
    beginStatement(0);
    m_driver->unsubscribeFromNotification(Channel);
    endStatement();
}

// The driver passes on its notices one by one and must not be used, or even closed, in between.
void PostgresEngine::noticeLater()
{
    QMetaObject::invokeMethod(m_watch.get(), m_noticed, Qt::QueuedConnection);
}

// Sends a statement and looks for its answer the next time, so that the caller never waits.
Status PostgresEngine::poll()
{
    PQconsumeInput(m_connection);
    if (m_ping.isValid() && PQisBusy(m_connection) == 0)
        finishPing();
    if (m_ping.isValid() && m_ping.hasExpired(LongestPing)) {
        ::shutdown(m_socket, SHUT_RDWR);
        PQconsumeInput(m_connection);
    }
    if (!m_ping.isValid() && PQsendQuery(m_connection, "SELECT 1") == 1)
        m_ping.start();
    silenceWhenLost();
    return PQstatus(m_connection) == CONNECTION_OK ? Status() : Error::ConnectionLost;
}

void PostgresEngine::finishPing()
{
    if (!m_ping.isValid())
        return;
    // A connection that nothing watches takes the answer to a notice only now.
    const bool isNotice = PQpipelineStatus(m_connection) != PQ_PIPELINE_OFF;
    const qint64 left = isNotice ? LongestPing : qMax<qint64>(0, LongestPing - m_ping.elapsed());
    const StallGuard::Call call(m_socket, std::chrono::milliseconds(left));
    while (PQstatus(m_connection) == CONNECTION_OK) {
        const Answer answer(PQgetResult(m_connection));
        if (isNotice ? PQresultStatus(answer.get()) == PGRES_PIPELINE_SYNC : !answer)
            break;
    }
    PQexitPipelineMode(m_connection);
    m_ping.invalidate();
}

void PostgresEngine::takeNotifier(QSocketNotifier* notifier)
{
    m_notifier = notifier;
    // After the driver, which reads what has arrived. libpq passes on no notice behind an answer that is not taken.
    QObject::connect(notifier, &QSocketNotifier::activated, m_watch.get(), [this] {
        if (PQstatus(m_connection) == CONNECTION_OK && PQisBusy(m_connection) == 0)
            finishPing();
        silenceWhenLost();
        if (PQstatus(m_connection) != CONNECTION_OK)
            noticeLater();
    });
}

// libpq closes the socket of a lost connection, which the driver still watches. Qt only logs that if the loss comes
// before the notifier was ever activated.
void PostgresEngine::silenceWhenLost()
{
    if (m_notifier && PQstatus(m_connection) != CONNECTION_OK)
        m_notifier->setEnabled(false);
}
