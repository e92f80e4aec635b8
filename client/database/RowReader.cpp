#include "RowReader.h"

RowReader::RowReader(Database& database, const QString& statement)
    : m_database(database)
    , m_rows(database.rows(statement))
{
    if (!m_rows)
        m_status = Error::DatabaseNotOpen;
    else if (!m_rows->status())
        m_status = database.note(m_rows->status());
}

bool RowReader::next()
{
    if (!m_status)
        return false;
    const bool hasRow = m_rows->next();
    if (!m_rows->status())
        m_status = m_database.note(m_rows->status());
    return hasRow;
}

QString RowReader::sharedText(int column)
{
    const QByteArray present = m_rows->bytes(column);
    if (column >= m_latest.size())
        m_latest.resize(column + 1);
    Latest& latest = m_latest[column];
    if (latest.text.isNull() || latest.bytes != present) {
        auto known = m_texts.find(present);
        if (known == m_texts.end())
            known = m_texts.insert(QByteArray(present.constData(), present.size()), QString::fromUtf8(present));
        latest = { known.key(), *known };
    }
    return latest.text;
}
