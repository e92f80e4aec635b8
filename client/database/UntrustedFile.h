#pragma once

#include "Status.h"

#include <QString>

#include <functional>

struct sqlite3;

/// Protection against databases that another program made or changed.
namespace UntrustedFile {

/// Fails unless the database and its companions are regular files of a usual size. Missing ones are accepted.
Status checkFiles(const QString& database);

/// Limits what the contents of a database can make SQLite do. Call it before the first statement.
void restrict(sqlite3* connection);

/// Fails unless the numbers in the file's header are those of a schema version of the client.
Status checkVersion(int application, int version);

/// Fails unless the tables, indexes, views and triggers of the database are those of a schema version.
Status checkSchema(sqlite3* connection, int version);

/// The longest time for `checkSchema`, in seconds.
constexpr int LongestSchemaCheck = 5;

/// Interrupts statements of `work` that still run after a time, which then fails.
Status withinSeconds(int seconds, sqlite3* connection, const std::function<Status()>& work);

} // namespace UntrustedFile
