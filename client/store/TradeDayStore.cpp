#include "store/TradeDayStore.h"

TradeDayStore::TradeDayStore(Database& database)
    : m_database(database)
{
}

QString TradeDayStore::replace(const QString& exchange, const QList<QDate>& days)
{
    return m_database.transaction([&] {
        QString reason = m_database.execute(QStringLiteral("DELETE FROM trade_days WHERE exchange = ?"), { exchange });
        QSqlQuery insert = m_database.prepare(QStringLiteral("INSERT INTO trade_days (exchange, day) VALUES (?, ?)"));
        for (int i = 0; i < days.size() && reason.isEmpty(); ++i)
            reason = Database::executePrepared(insert, { exchange, days.at(i).toString(Qt::ISODate) });
        return reason;
    });
}

QList<QDate> TradeDayStore::days(const QString& exchange, const QDate& from)
{
    QSqlQuery query =
        m_database.query(QStringLiteral("SELECT day FROM trade_days WHERE exchange = ? AND day >= ? ORDER BY day"),
            { exchange, from.toString(Qt::ISODate) });
    QList<QDate> days;
    while (query.next())
        days << QDate::fromString(query.value(0).toString(), Qt::ISODate);
    return days;
}
