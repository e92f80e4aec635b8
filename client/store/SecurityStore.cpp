#include "SecurityStore.h"

#include "CloseCodec.h"
#include "RowReader.h"

SecurityStore::SecurityStore(Database& database)
    : m_database(database)
{
}

void SecurityStore::beginAdding()
{
    m_addSecurity = m_database.prepare(
        QStringLiteral("INSERT INTO securities (symbol, name, type, sub_type, exchange, price_precision,"
                       " display_factor, quantity_step, limit_per_mille, st_flag, st_text)"
                       " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    m_addCloses = m_database.prepare(
        QStringLiteral("INSERT INTO closing_prices (security, last_day, last_close, closes) VALUES (?, ?, ?, ?)"));
}

Status SecurityStore::add(const Security& s, const CloseHistory& closes)
{
    Status status = Database::executePrepared(m_addSecurity,
        { s.symbol, s.name, s.type, s.subType, s.exchange, s.pricePrecision, s.displayFactor, s.quantityStep,
            s.limitPerMille, s.stFlag, s.stText });
    if (!status || closes.ticks.isEmpty())
        return status;
    return Database::executePrepared(m_addCloses,
        { m_addSecurity.lastInsertId(), closes.lastDay.toString(Qt::ISODate), closes.ticks.constLast(),
            CloseCodec::encode(closes.ticks) });
}

Status SecurityStore::readAll(const std::function<void(Security&&)>& take)
{
    RowReader row(m_database,
        QStringLiteral("SELECT symbol, name, type, sub_type, exchange, price_precision, display_factor,"
                       " quantity_step, limit_per_mille, st_flag, st_text, last_close"
                       " FROM securities LEFT JOIN closing_prices ON security = position ORDER BY position"));
    while (row.next()) {
        Security s;
        s.symbol = row.text(0);
        s.name = row.text(1);
        s.type = row.sharedText(2);
        s.subType = row.sharedText(3);
        s.exchange = row.sharedText(4);
        s.pricePrecision = static_cast<int>(row.number(5));
        s.displayFactor = static_cast<int>(row.number(6));
        s.quantityStep = static_cast<int>(row.number(7));
        s.limitPerMille = static_cast<int>(row.number(8));
        s.stFlag = row.sharedText(9);
        s.stText = row.sharedText(10);
        s.previousClose = row.number(11);
        take(std::move(s));
    }
    return row.status();
}

int SecurityStore::count()
{
    QSqlQuery query = m_database.query(QStringLiteral("SELECT count(*) FROM securities"));
    return query.next() ? query.value(0).toInt() : 0;
}

CloseHistory SecurityStore::closes(const QString& symbol)
{
    QSqlQuery query = m_database.query(
        QStringLiteral("SELECT last_day, closes FROM closing_prices JOIN securities ON security = position"
                       " WHERE symbol = ?"),
        { symbol });
    if (!query.next())
        return CloseHistory();
    const auto ticks = CloseCodec::decode(query.value(1).toByteArray());
    if (!ticks)
        return CloseHistory();
    return { QDate::fromString(query.value(0).toString(), Qt::ISODate), *ticks };
}

QStringList SecurityStore::firstSymbols(const QString& subType, const QString& suffix, int limit)
{
    QSqlQuery query = m_database.query(
        QStringLiteral("SELECT symbol FROM securities WHERE sub_type = ? AND (? = '' OR substr(symbol, -length(?)) = ?)"
                       " ORDER BY position LIMIT ?"),
        { subType, suffix, suffix, suffix, limit });
    QStringList symbols;
    while (query.next())
        symbols << query.value(0).toString();
    return symbols;
}
