#pragma once

#include "Status.h"

class QSqlError;
struct sqlite3;

/// What SQLite's codes mean.
namespace SqliteStatus {

/// `text` is SQLite's description of the error.
Status of(int code, const QString& text);
/// The error of Qt's driver.
Status of(const QSqlError& error);
/// The last error of a connection.
Status last(sqlite3* connection);

} // namespace SqliteStatus
