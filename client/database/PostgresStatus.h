#pragma once

#include "Status.h"

class QSqlError;
struct pg_conn;
struct pg_result;

/// What PostgreSQL's codes mean.
namespace PostgresStatus {

/// The error of Qt's driver on a connection.
Status of(pg_conn* connection, const QSqlError& error);
/// The error of an answer.
Status of(pg_conn* connection, const pg_result* answer);
/// Of an error's text; the others may show rows that the role must not read.
QString firstLine(const QString& text);

} // namespace PostgresStatus
