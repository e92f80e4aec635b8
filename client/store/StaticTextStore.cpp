#include "store/StaticTextStore.h"

StaticTextStore::StaticTextStore(Database& database)
    : m_database(database)
{
}

QString StaticTextStore::set(const QString& category, const QString& key, const QString& text)
{
    return m_database.execute(
        QStringLiteral("INSERT OR REPLACE INTO static_texts (category, key, text) VALUES (?, ?, ?)"),
        { category, key, text });
}

QString StaticTextStore::text(const QString& category, const QString& key, const QString& fallback)
{
    QSqlQuery query = m_database.query(
        QStringLiteral("SELECT text FROM static_texts WHERE category = ? AND key = ?"), { category, key });
    return query.next() ? query.value(0).toString() : fallback;
}
