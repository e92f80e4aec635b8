#pragma once

#include "Status.h"

#include <QByteArray>
#include <QString>

class Database;
struct pg_conn;
struct pg_result;

/// Rows of a server's tables in PostgreSQL's text format, one line each. They stream, so that a table of any size needs
/// little memory. The database must be open on a server, and runs nothing else meanwhile.
namespace CopyStream {

/// A column's text in a line.
QByteArray field(const QByteArray& text);
QByteArray binaryField(const QByteArray& bytes);
QByteArray nullField();

/// Adds rows to a table.
class Writer {
public:
    /// `target`: the table with its columns.
    Writer(Database& database, const QString& target);
    ~Writer();
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    /// The fields, separated by tabs. A row that the table refuses makes `finish` fail.
    void write(const QByteArray& line);
    Status finish();

private:
    pg_conn* const m_connection;
    Status m_status;
    bool m_isOpen = false;
};

/// Reads the rows of a query.
class Reader {
public:
    Reader(Database& database, const QString& query);
    ~Reader();
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    /// Reads the next line. Returns false after the last one or an error.
    bool next(QByteArray& line);
    const Status& status() const { return m_status; }

private:
    pg_conn* const m_connection;
    Status m_status;
    bool m_isOpen = false;
};

} // namespace CopyStream
