#include "RowReader.h"

#include "SqliteStatus.h"

#include <sqlite3.h>

RowReader::RowReader(Database& database, const QString& statement)
    : m_database(database)
{
    const QByteArray bytes = statement.toUtf8();
    sqlite3* const connection = database.connection();
    if (connection)
        note(sqlite3_prepare_v2(connection, bytes.constData(), bytes.size(), &m_statement, nullptr));
    else
        m_status = Error::DatabaseNotOpen;
    m_latest.resize(sqlite3_column_count(m_statement));
}

RowReader::~RowReader()
{
    sqlite3_finalize(m_statement);
}

bool RowReader::next()
{
    if (!m_status)
        return false;
    const int code = sqlite3_step(m_statement);
    if (code != SQLITE_DONE)
        note(code);
    return code == SQLITE_ROW;
}

// Points into the row; valid until the next one.
QByteArray RowReader::bytes(int column) const
{
    const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    return QByteArray::fromRawData(text, sqlite3_column_bytes(m_statement, column));
}

QString RowReader::text(int column) const
{
    return QString::fromUtf8(bytes(column));
}

qint64 RowReader::number(int column) const
{
    return sqlite3_column_int64(m_statement, column);
}

QString RowReader::sharedText(int column)
{
    const QByteArray present = bytes(column);
    Latest& latest = m_latest[column];
    if (latest.text.isNull() || latest.bytes != present) {
        auto known = m_texts.find(present);
        if (known == m_texts.end())
            known = m_texts.insert(QByteArray(present.constData(), present.size()), QString::fromUtf8(present));
        latest = { known.key(), *known };
    }
    return latest.text;
}

void RowReader::note(int code)
{
    if (code == SQLITE_OK || code == SQLITE_ROW)
        return;
    const QString text = QString::fromUtf8(sqlite3_errmsg(m_database.connection()));
    m_status = m_database.note(SqliteStatus::of(code, text));
}
