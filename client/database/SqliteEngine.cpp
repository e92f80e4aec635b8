#include "SqliteEngine.h"

#include "Database.h"
#include "PrivateFiles.h"
#include "SqliteSchema.h"
#include "SqliteStatus.h"
#include "UntrustedFile.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QThread>

#include <sqlite3.h>
#include <sys/statvfs.h>

#include <atomic>
#include <limits>
#include <utility>

namespace {

// How long a statement waits for another client's transaction, in milliseconds: in a window, and in a command.
constexpr int BusyTimeout = 800;
constexpr int PatientTimeout = 30000;
// Between two attempts to start the log of a new file, in milliseconds.
constexpr int RetryInterval = 10;
// Pages in memory, in negative KiB.
constexpr int CacheSize = -2000;
// In seconds. The schema takes milliseconds; the pages of a million plans a few seconds.
constexpr int LongestPageCheck = 120;
// A few hundred pages, unless other clients write, too: well before SQLite's automatic checkpoint within a transaction.
constexpr int TransactionsPerWal = 50;
// For what reads the file once, in seconds, and what a slow disk reads in one, in bytes.
constexpr int LeastTime = 5;
constexpr qint64 BytesOfSecond = 10 * 1024 * 1024;
// A row needs more than four bytes of a page.
constexpr qint64 MostRowsOfPage = 1000;
// SQLite's default, which the engine's own hook replaces.
constexpr int FramesUntilCheckpoint = 1000;
constexpr qint64 FrameSize = 4096 + 24;
// A few transactions fit into the room, and some more into what is added to it, in bytes.
constexpr qint64 LeastRoom = 256LL * 1024;
constexpr int AddedRoom = 512 * 1024;
// SQLite writes less than 128 KiB at once.
constexpr int LongestWrite = 64 * 1024;
// A disk with less free space is left to the data, in bytes.
constexpr quint64 LeastFreeSpace = 64ULL * 1024 * 1024;

const QString DataVersion = QStringLiteral("PRAGMA data_version");

bool isNearlyFull(const QString& fileName)
{
    struct statvfs disk { };
    return ::statvfs(QFile::encodeName(fileName).constData(), &disk) != 0
        || disk.f_bavail * disk.f_frsize < LeastFreeSpace;
}

class SqliteRows : public EngineRows {
public:
    SqliteRows(sqlite3* connection, const QString& statement)
        : m_connection(connection)
    {
        const QByteArray bytes = statement.toUtf8();
        note(sqlite3_prepare_v2(connection, bytes.constData(), bytes.size(), &m_statement, nullptr));
    }
    ~SqliteRows() override { sqlite3_finalize(m_statement); }

    bool next() override
    {
        const int code = sqlite3_step(m_statement);
        if (code != SQLITE_DONE)
            note(code);
        return code == SQLITE_ROW;
    }

    const Status& status() const override { return m_status; }

    QByteArray bytes(int column) const override
    {
        const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
        return QByteArray::fromRawData(text, sqlite3_column_bytes(m_statement, column));
    }

    bool isNull(int column) const override { return sqlite3_column_type(m_statement, column) == SQLITE_NULL; }
    qint64 number(int column) const override { return sqlite3_column_int64(m_statement, column); }

private:
    void note(int code)
    {
        if (code != SQLITE_OK && code != SQLITE_ROW)
            m_status = SqliteStatus::of(code, QString::fromUtf8(sqlite3_errmsg(m_connection)));
    }

    sqlite3* const m_connection;
    sqlite3_stmt* m_statement = nullptr;
    Status m_status;
};

int nextNumber()
{
    static std::atomic_int last{ 0 };
    return ++last;
}

} // namespace

SqliteEngine::SqliteEngine(Database& database, const FileIdentity& expected)
    : m_database(database)
    , m_number(nextNumber())
    , m_expected(expected)
{
}

Status SqliteEngine::open(QSqlDatabase& connection, const QString& name, const QString& location, bool)
{
    if (Status status = connect(connection, name, location); !status)
        return status;
    if (Status status = inspect(); !status)
        return status;
    if (Status status = m_expected.checkOther(m_connection); !status)
        return status;
    if (Status status = prepareConnection(); !status)
        return status;
    // The first read of a new file creates its log.
    const Result<int> version = number(QStringLiteral("PRAGMA user_version"));
    if (!version)
        return version.status();
    if (Status status = m_files.remember(m_connection, location); !status)
        return status;
    if (*version == SqliteSchema::latestVersion())
        return {};
    m_files.forget();
    if (Status status = m_database.transaction([this] { return applyMigrations(); }); !status)
        return status;
    return m_files.remember(m_connection, location);
}

int SqliteEngine::busyTimeout() const
{
    return m_database.isPatient() ? PatientTimeout : BusyTimeout;
}

Status SqliteEngine::connect(QSqlDatabase& connection, const QString& name, const QString& fileName)
{
    if (fileName.isEmpty())
        return Error::NoDatabaseFile;
    if (Status status = m_expected.checkNames(); !status)
        return status;
    if (Status status = UntrustedFile::checkFiles(fileName); !status)
        return status;
    if (!PrivateFiles::makeFolder(QFileInfo(fileName).absolutePath()))
        return Error::CannotCreateFolder;
    if (!QFileInfo::exists(fileName))
        PrivateFiles::makeFile(fileName);
    LockWaits::limitPauses();
    connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
    connection.setDatabaseName(fileName);
    if (!connection.open())
        return SqliteStatus::of(connection.lastError());
    m_fileName = fileName;
    m_connection = *static_cast<sqlite3* const*>(connection.driver()->handle().constData());
    UntrustedFile::restrict(m_connection);
    m_waits.setLimit(busyTimeout());
    m_waits.apply(m_connection);
    return {};
}

// Only reads, so that a refused file stays unchanged.
Status SqliteEngine::inspect()
{
    const auto within = [this](int seconds, Status (SqliteEngine::*inspection)()) {
        return UntrustedFile::withinSeconds(
            seconds, m_connection, [this, inspection] { return (this->*inspection)(); });
    };
    // One state of the file, although another client may migrate it meanwhile.
    Status status = m_database.configure(QStringLiteral("BEGIN"));
    if (status)
        status = within(UntrustedFile::LongestSchemaCheck, &SqliteEngine::checkSchema);
    rollBack();
    if (!status)
        return status;
    const Result<int> version = number(QStringLiteral("PRAGMA user_version"));
    if (!version)
        return version.status();
    return *version < SqliteSchema::latestVersion() ? within(LongestPageCheck, &SqliteEngine::checkPages) : status;
}

Status SqliteEngine::checkSchema()
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
    if (Status status = UntrustedFile::checkSchema(m_connection, *version); !status)
        return status;
    // Otherwise the file says how much of it is kept in memory.
    return m_database.configure(QStringLiteral("PRAGMA cache_size = %1").arg(CacheSize));
}

Status SqliteEngine::checkVersion(int tables, int version, int application)
{
    if (tables == 0 && version == 0 && application == 0)
        return {};
    return UntrustedFile::checkVersion(application, version);
}

Status SqliteEngine::checkPages()
{
    const Result<QVariant> check = m_database.value(QStringLiteral("PRAGMA quick_check(1)"));
    if (!check)
        return check.status();
    return check->toString() == QLatin1String("ok") ? Status() : Error::DatabaseCorrupt;
}

Status SqliteEngine::prepareConnection()
{
    if (Status status = startWalMode(); !status)
        return status;
    sqlite3_wal_hook(m_connection, noteFrames, this);
    if (Status status = m_database.configure(QStringLiteral("PRAGMA synchronous = FULL")); !status)
        return status;
    // Triggers on deletion then also refuse to replace a row.
    if (Status status = m_database.configure(QStringLiteral("PRAGMA recursive_triggers = ON")); !status)
        return status;
    return m_database.configure(QStringLiteral("PRAGMA foreign_keys = ON"));
}

// Two first starts of the same new file stop each other at once, without waiting for the lock.
Status SqliteEngine::startWalMode()
{
    QElapsedTimer waiting;
    waiting.start();
    for (;;) {
        const Result<QVariant> mode = m_database.value(QStringLiteral("PRAGMA journal_mode = WAL"));
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
Status SqliteEngine::applyMigrations()
{
    const Result<int> version = number(QStringLiteral("PRAGMA user_version"));
    if (!version)
        return version.status();
    for (const Migration& migration : SqliteSchema::migrations()) {
        const Status status = migration.version > *version ? migrate(migration) : Status();
        if (!status)
            return { Error::MigrationFailed, {}, status };
    }
    return m_database.execute(QStringLiteral("PRAGMA application_id = %1").arg(SqliteSchema::applicationId()));
}

Status SqliteEngine::migrate(const Migration& migration)
{
    for (const Obstacle& obstacle : migration.obstacles) {
        if (Status status = refuse(obstacle); !status)
            return status;
    }
    for (const QString& statement : migration.statements) {
        if (Status status = m_database.execute(statement); !status)
            return status;
    }
    return m_database.execute(QStringLiteral("PRAGMA user_version = %1").arg(migration.version));
}

Status SqliteEngine::refuse(const Obstacle& obstacle)
{
    QStringList found;
    Status status = m_database.read(obstacle.query + QStringLiteral(" LIMIT 1"), {}, [&found](const QSqlQuery& row) {
        for (int column = 0; column < row.record().count(); ++column)
            found << row.value(column).toString();
    });
    return status && !found.isEmpty() ? Status(obstacle.error, found) : status;
}

// The last connection moves the log to the database and deletes it, by its name, which may be another file's now.
void SqliteEngine::prepareClosing()
{
    if (!m_files.check())
        sqlite3_db_config(m_connection, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

bool SqliteEngine::isInTransaction() const
{
    return sqlite3_get_autocommit(m_connection) == 0;
}

void SqliteEngine::rollBack()
{
    if (isInTransaction())
        sqlite3_exec(m_connection, "ROLLBACK", nullptr, nullptr, nullptr);
}

// SQLite also counts the commits of this connection. Each connection starts its own count.
QString SqliteEngine::contentVersion() const
{
    unsigned commits = 0;
    sqlite3_file_control(m_connection, "main", SQLITE_FCNTL_DATA_VERSION, &commits);
    return QString::number(m_number) + QLatin1Char('/') + QString::number(commits);
}

std::unique_ptr<EngineRows> SqliteEngine::rows(const QString& statement)
{
    return std::make_unique<SqliteRows>(m_connection, statement);
}

Status SqliteEngine::withinTime(const std::function<Status()>& work)
{
    const auto seconds = static_cast<int>(LeastTime + QFileInfo(m_fileName).size() / BytesOfSecond);
    return UntrustedFile::withinSeconds(seconds, m_connection, work);
}

// A file from elsewhere can lead to the same pages again and again.
Status SqliteEngine::checkRows(qint64 rows)
{
    const Result<int> pages = number(QStringLiteral("PRAGMA page_count"));
    if (!pages)
        return pages.status();
    return rows > *pages * MostRowsOfPage ? Error::DatabaseCorrupt : Status();
}

// SQLite reports the end of the row numbers like a full disk.
Status SqliteEngine::failure(const QSqlError& error)
{
    const Status failure = SqliteStatus::of(error);
    // Qt passes on codes without their details.
    if (failure.error() == Error::DatabaseReadOnly || sqlite3_errcode(m_connection) == SQLITE_CONSTRAINT)
        return SqliteStatus::last(m_connection);
    if (failure.error() != Error::DiskFull)
        return failure;
    SqliteRows used(m_connection, QStringLiteral("SELECT max(seq) FROM sqlite_sequence"));
    const bool atEnd = used.status() && used.next() && used.number(0) == std::numeric_limits<qint64>::max();
    return atEnd ? Error::NumbersExhausted : failure;
}

void SqliteEngine::interrupt()
{
    sqlite3_interrupt(m_connection);
}

Status SqliteEngine::watch(const std::function<void()>& noticed)
{
    const Result<int> version = number(DataVersion);
    m_version = version.valueOr(0);
    m_noticed = noticed;
    return version.status();
}

Status SqliteEngine::poll()
{
    if (Status status = m_files.check(); !status)
        return status;
    const Result<int> version = number(DataVersion);
    if (version && m_noticed && std::exchange(m_version, *version) != *version)
        m_noticed();
    return version.status();
}

void SqliteEngine::prepareWal()
{
    if (!m_files.check())
        return;
    const bool isBegun = QFileInfo(m_fileName + QStringLiteral("-wal")).size() > 0;
    m_waits.setLimit(0);
    if ((!isBegun || (m_committed >= TransactionsPerWal && checkpoint())) && startWal())
        m_committed = 0;
    makeRoom();
    m_waits.setLimit(busyTimeout());
}

// The next transactions overwrite zeros behind the log: while a file keeps its size, only its contents are flushed. The
// write lock keeps others from writing there meanwhile. It is rolled back, because a commit counts as a change.
void SqliteEngine::makeRoom()
{
    sqlite3_file* wal = nullptr;
    sqlite3_int64 size = 0;
    sqlite3_file_control(m_connection, "main", SQLITE_FCNTL_JOURNAL_POINTER, &wal);
    if (!wal || !wal->pMethods || isNearlyFull(m_fileName)
        || sqlite3_exec(m_connection, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) != SQLITE_OK)
        return;
    int code = wal->pMethods->xFileSize(wal, &size);
    const qint64 used = m_frames == 0 ? size : m_frames * FrameSize;
    const bool isShort = code == SQLITE_OK && size > 0 && size < used + LeastRoom;
    const QByteArray zeros(LongestWrite, '\0');
    for (int added = 0; isShort && added < AddedRoom && code == SQLITE_OK; added += LongestWrite)
        code = wal->pMethods->xWrite(wal, zeros.constData(), LongestWrite, size + added);
    rollBack();
    if (isShort && code == SQLITE_OK)
        wal->pMethods->xSync(wal, SQLITE_SYNC_NORMAL);
}

int SqliteEngine::noteFrames(void* engine, sqlite3* connection, const char* name, int frames)
{
    static_cast<SqliteEngine*>(engine)->m_frames = frames;
    if (frames >= FramesUntilCheckpoint)
        sqlite3_wal_checkpoint(connection, name);
    return SQLITE_OK;
}

// The first transaction of a log flushes it twice, once for the log's header. This one writes the version unchanged.
Status SqliteEngine::startWal()
{
    return m_database.transaction([this]() -> Status {
        const Result<int> version = number(QStringLiteral("PRAGMA user_version"));
        if (!version)
            return version.status();
        return m_database.execute(QStringLiteral("PRAGMA user_version = %1").arg(*version));
    });
}

/// False while another connection reads an older state.
bool SqliteEngine::checkpoint()
{
    int frames = 0;
    int moved = 0;
    const int code = sqlite3_wal_checkpoint_v2(m_connection, nullptr, SQLITE_CHECKPOINT_PASSIVE, &frames, &moved);
    return code == SQLITE_OK && frames == moved;
}

Result<int> SqliteEngine::number(const QString& statement)
{
    const Result<QVariant> found = m_database.value(statement);
    return found ? Result<int>(found->toInt()) : found.status();
}
