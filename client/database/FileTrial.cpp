#include "FileTrial.h"

#include "PrivateFiles.h"
#include "SqliteStatus.h"

#include <QDir>
#include <QFileInfo>
#include <QUuid>

#include <sqlite3.h>
#include <unistd.h>

#include <memory>

namespace {

const QString FolderName = QStringLiteral("plandesk-import-");
const QString LockEnd = QStringLiteral(".lock");
const QString CopyName = QStringLiteral("copy.sqlite");

// Others can put a link there.
void removeFolder(const QString& path)
{
    const QFileInfo folder(path);
    if (folder.isDir() && !folder.isSymLink() && folder.ownerId() == getuid())
        QDir(path).removeRecursively();
}

// A lock whose owner was killed can be taken. It is older than its folder, so none is removed that is about to be used.
void removeLeftCopies()
{
    const QDir::Filters files = QDir::Files | QDir::NoSymLinks;
    const QFileInfoList locks = QDir::temp().entryInfoList({ FolderName + QLatin1Char('*') + LockEnd }, files);
    for (const QFileInfo& file : locks) {
        QLockFile lock(file.filePath());
        lock.setStaleLockTime(0);
        if (lock.tryLock())
            removeFolder(file.filePath().chopped(LockEnd.size()));
    }
}

struct Closer {
    void operator()(sqlite3* connection) const { sqlite3_close(connection); }
    void operator()(sqlite3_session* session) const { sqlite3session_delete(session); }
};

sqlite3* handleOf(const Database& database)
{
    return *static_cast<sqlite3* const*>(database.handle().constData());
}

int writeChanges(void* file, const void* bytes, int count)
{
    return static_cast<QFile*>(file)->write(static_cast<const char*>(bytes), count) == count ? SQLITE_OK : SQLITE_FULL;
}

int readChanges(void* file, void* bytes, int* count)
{
    *count = static_cast<int>(static_cast<QFile*>(file)->read(static_cast<char*>(bytes), *count));
    return *count < 0 ? SQLITE_IOERR : SQLITE_OK;
}

// A row that refers to a deleted one may have gone with it.
int resolve(void*, int conflict, sqlite3_changeset_iter* change)
{
    const char* table = nullptr;
    int columns = 0;
    int operation = 0;
    int isIndirect = 0;
    const bool isKnown = sqlite3changeset_op(change, &table, &columns, &operation, &isIndirect) == SQLITE_OK;
    const bool isGone = isKnown && conflict == SQLITE_CHANGESET_NOTFOUND && operation == SQLITE_DELETE;
    return isGone ? SQLITE_CHANGESET_OMIT : SQLITE_CHANGESET_ABORT;
}

/// What triggers write is among the changes already.
class WithoutTriggers {
public:
    explicit WithoutTriggers(sqlite3* connection)
        : m_connection(connection)
    {
        sqlite3_db_config(m_connection, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    }
    ~WithoutTriggers() { sqlite3_db_config(m_connection, SQLITE_DBCONFIG_ENABLE_TRIGGER, 1, nullptr); }
    WithoutTriggers(const WithoutTriggers&) = delete;
    WithoutTriggers& operator=(const WithoutTriggers&) = delete;

private:
    sqlite3* const m_connection;
};

} // namespace

FileTrial::FileTrial(Database& file)
    : m_file(file)
    , m_folder(QDir::temp().filePath(FolderName + QUuid::createUuid().toString(QUuid::WithoutBraces)))
    , m_lock(m_folder + LockEnd)
{
    m_lock.setStaleLockTime(0);
    removeLeftCopies();
}

FileTrial::~FileTrial()
{
    removeFolder(m_folder);
}

Status FileTrial::run(const std::function<Status(Database& copy)>& work)
{
    if (Status status = copyFile(); !status)
        return status;
    Database copy;
    if (Status status = copy.open(QDir(m_folder).filePath(CopyName)); !status)
        return status;
    bool isDone = false;
    const Status status = copy.transaction([&]() -> Status {
        sqlite3_session* created = nullptr;
        const int code = sqlite3session_create(handleOf(copy), "main", &created);
        const std::unique_ptr<sqlite3_session, Closer> session(created);
        if (code != SQLITE_OK || sqlite3session_attach(created, nullptr) != SQLITE_OK)
            return SqliteStatus::last(handleOf(copy));
        Status worked = work(copy);
        if (worked
            && (!m_changes.open() || sqlite3session_changeset_strm(created, writeChanges, &m_changes) != SQLITE_OK))
            worked = Error::DiskFull;
        isDone = bool(worked);
        // The copy itself goes without a trace.
        return isDone ? Status(Error::NothingStored) : worked;
    });
    return isDone ? Status() : status;
}

// One step, because a further one would begin from the start after each change by others.
Status FileTrial::copyFile()
{
    const QString name = QDir(m_folder).filePath(CopyName);
    if (!m_lock.tryLock() || !PrivateFiles::makeFolder(m_folder) || !PrivateFiles::makeFile(name))
        return { Error::FileNotWritten, { name } };
    sqlite3* opened = nullptr;
    int code = sqlite3_open_v2(QFile::encodeName(name).constData(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    const std::unique_ptr<sqlite3, Closer> connection(opened);
    if (code != SQLITE_OK)
        return SqliteStatus::last(opened);
    sqlite3_exec(opened, "PRAGMA synchronous = OFF", nullptr, nullptr, nullptr);
    constexpr int All = -1;
    sqlite3_backup* const backup = sqlite3_backup_init(opened, "main", handleOf(m_file), "main");
    code = backup ? sqlite3_backup_step(backup, All) : SQLITE_ERROR;
    sqlite3_backup_finish(backup);
    m_version = m_file.contentVersion();
    return code == SQLITE_DONE ? Status() : SqliteStatus::of(code, QString::fromUtf8(sqlite3_errmsg(opened)));
}

std::optional<Status> FileTrial::apply()
{
    bool isPossible = false;
    const Status status = m_file.transaction([&]() -> Status {
        isPossible = m_file.contentVersion() == m_version;
        return isPossible ? makeChanges(isPossible) : Status(Error::NothingStored);
    });
    return isPossible ? std::optional<Status>(status) : std::nullopt;
}

Status FileTrial::makeChanges(bool& isPossible)
{
    m_changes.seek(0);
    sqlite3* const connection = handleOf(m_file);
    const WithoutTriggers withoutTriggers(connection);
    const int code = sqlite3changeset_apply_strm(connection, readChanges, &m_changes, nullptr, resolve, nullptr);
    isPossible = code != SQLITE_ABORT;
    return code == SQLITE_OK ? Status() : SqliteStatus::of(code, QString::fromUtf8(sqlite3_errmsg(connection)));
}
