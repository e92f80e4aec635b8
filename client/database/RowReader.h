#pragma once

#include "Database.h"
#include "DatabaseEngine.h"

#include <QHash>
#include <QVector>

/// Reads the rows of a statement through the engine's own interface. Qt's makes a variant of every value, which
/// dominates the time for a hundred thousand rows. The database must stay open meanwhile.
class RowReader {
public:
    RowReader(Database& database, const QString& statement);

    /// Moves to the next row, first to the first one. Returns false after the last row or an error.
    bool next();
    /// Whether all rows could be read so far.
    Status status() const { return m_status; }

    /// Values of the row, by column; empty or 0 for NULL.
    QString text(int column) const { return QString::fromUtf8(m_rows->bytes(column)); }
    /// The bytes of a text or BLOB, valid until the next row.
    QByteArray bytes(int column) const { return m_rows->bytes(column); }
    bool isNull(int column) const { return m_rows->isNull(column); }
    qint64 number(int column) const { return m_rows->number(column); }
    /// Like `text`; equal texts share one copy.
    QString sharedText(int column);

private:
    /// The last row's text in a column, which is usually the next row's, too.
    struct Latest {
        QByteArray bytes;
        QString text;
    };

    Database& m_database;
    const std::unique_ptr<EngineRows> m_rows;
    Status m_status;
    QVector<Latest> m_latest;
    QHash<QByteArray, QString> m_texts;
};
