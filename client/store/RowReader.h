#pragma once

#include "Database.h"

#include <QHash>
#include <QVector>

struct sqlite3;
struct sqlite3_stmt;

/// The rows of a statement, read by SQLite's own interface. Qt's makes a variant of every value, which takes most of
/// the time where there are a hundred thousand rows. The database must stay open meanwhile.
class RowReader {
public:
    RowReader(const Database& database, const QString& statement);
    ~RowReader();
    RowReader(const RowReader&) = delete;
    RowReader& operator=(const RowReader&) = delete;

    /// Goes to the next row, at first to the first one. False behind the last row and after an error.
    bool next();
    /// Whether all rows could be read so far.
    Status status() const { return m_status; }

    /// Values of the row, by column; empty or 0 for NULL.
    QString text(int column) const;
    qint64 number(int column) const;
    /// As `text`, one shared copy for all rows of the column that have the same.
    QString sharedText(int column);

private:
    /// What the last row had in a column, which the next one mostly has, too.
    struct Latest {
        QByteArray bytes;
        QString text;
    };

    QByteArray bytes(int column) const;
    void note(int code);

    sqlite3* m_connection = nullptr;
    sqlite3_stmt* m_statement = nullptr;
    Status m_status;
    QVector<Latest> m_latest;
    QHash<QByteArray, QString> m_texts;
};
