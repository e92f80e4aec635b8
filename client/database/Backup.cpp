#include "Backup.h"

#include "Database.h"
#include "PrivateFiles.h"
#include "SqliteStatus.h"
#include "UntrustedFile.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <memory>

namespace {

constexpr int BusyTimeout = 5000; // milliseconds

struct Closer {
    void operator()(sqlite3* connection) const { sqlite3_close(connection); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Connection = std::unique_ptr<sqlite3, Closer>;

Status failure(sqlite3* connection)
{
    return SqliteStatus::last(connection);
}

Status open(const QString& database, Connection& connection)
{
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(QFile::encodeName(database).constData(), &opened, SQLITE_OPEN_READONLY, nullptr);
    connection.reset(opened);
    if (code != SQLITE_OK)
        return failure(opened);
    sqlite3_busy_timeout(opened, BusyTimeout);
    UntrustedFile::restrict(opened);
    return {};
}

Status run(const Connection& connection, const char* sql, const QByteArray& value, int& number)
{
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(connection.get(), sql, -1, &prepared, nullptr) != SQLITE_OK)
        return failure(connection.get());
    const std::unique_ptr<sqlite3_stmt, Closer> statement(prepared);
    if (sqlite3_bind_parameter_count(prepared) > 0)
        sqlite3_bind_text(prepared, 1, value.constData(), -1, SQLITE_TRANSIENT);
    int code = sqlite3_step(prepared);
    if (code == SQLITE_ROW) {
        number = sqlite3_column_int(prepared, 0);
        code = sqlite3_step(prepared);
    }
    return code == SQLITE_DONE ? Status() : failure(connection.get());
}

/// Fails for a file that the client would not open.
Status checkSchema(const Connection& connection)
{
    int application = 0;
    int version = 0;
    Status status = run(connection, "PRAGMA application_id", {}, application);
    if (status)
        status = run(connection, "PRAGMA user_version", {}, version);
    if (status)
        status = UntrustedFile::checkVersion(application, version);
    return status ? UntrustedFile::checkSchema(connection.get(), version) : status;
}

// SQLite writes into an empty file that exists, so its mode is known from the beginning.
Status copy(const Connection& connection, const QString& file)
{
    if (!PrivateFiles::makeFile(file))
        return QFileInfo::exists(file) ? Status(Error::FileExists, { file }) : Status(Error::FileNotWritten, { file });
    int unused = 0;
    Status status = run(connection, "VACUUM INTO ?", QFile::encodeName(file), unused);
    if (status && !PrivateFiles::flush(file))
        status = { Error::FileNotWritten, { file } };
    if (!status)
        QFile::remove(file);
    return status;
}

Status backUp(const QString& database, const QString& file)
{
    if (!QFileInfo(database).isFile())
        return Error::NotAFile;
    if (Status status = UntrustedFile::checkFiles(database); !status)
        return status;
    Connection connection;
    if (Status status = open(database, connection); !status)
        return status;
    const auto check = [&connection] { return checkSchema(connection); };
    if (Status status = UntrustedFile::withinSeconds(UntrustedFile::LongestSchemaCheck, connection.get(), check);
        !status)
        return status;
    return copy(connection, file);
}

} // namespace

Status backUpDatabase(const QString& database, const QString& file)
{
    const Status status = backUp(database, file);
    return status ? Status() : Status(Error::BackupFailed, { database }, status);
}
