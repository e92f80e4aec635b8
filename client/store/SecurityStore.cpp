#include "SecurityStore.h"

#include "CloseCodec.h"
#include "RowReader.h"

#include <limits>

namespace {

const QString Columns = QStringLiteral("SELECT symbol, name, type, sub_type, exchange, price_precision, display_factor,"
                                       " quantity_step, limit_per_mille, st_flag, st_text, last_close, position"
                                       " FROM securities LEFT JOIN closing_prices ON security = position");

} // namespace

SecurityStore::SecurityStore(Database& database)
    : m_database(database)
{
}

Status SecurityStore::add(const Security& s, const CloseHistory& closes)
{
    return m_database.transaction([&]() -> Status {
        Status status = m_database.execute(
            QStringLiteral("INSERT INTO securities (symbol, name, type, sub_type, exchange, price_precision,"
                           " display_factor, quantity_step, limit_per_mille, st_flag, st_text)"
                           " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
            { s.symbol, s.name, s.type, s.subType, s.exchange, s.pricePrecision, s.displayFactor, s.quantityStep,
                s.limitPerMille, s.stFlag, s.stText });
        return status && !closes.ticks.isEmpty() ? setCloses(s.symbol, closes) : status;
    });
}

Status SecurityStore::change(const Security& s)
{
    return m_database.execute(
        QStringLiteral("UPDATE securities SET name = ?, type = ?, sub_type = ?, exchange = ?, price_precision = ?,"
                       " display_factor = ?, quantity_step = ?, limit_per_mille = ?, st_flag = ?, st_text = ?"
                       " WHERE symbol = ?"),
        { s.name, s.type, s.subType, s.exchange, s.pricePrecision, s.displayFactor, s.quantityStep, s.limitPerMille,
            s.stFlag, s.stText, s.symbol });
}

Status SecurityStore::remove(const QString& symbol)
{
    return m_database.execute(QStringLiteral("DELETE FROM securities WHERE symbol = ?"), { symbol });
}

Status SecurityStore::setCloses(const QString& symbol, const CloseHistory& closes)
{
    if (closes.ticks.isEmpty())
        return m_database.execute(QStringLiteral("DELETE FROM closing_prices WHERE security ="
                                                 " (SELECT position FROM securities WHERE symbol = ?)"),
            { symbol });
    return m_database.execute(QStringLiteral("INSERT INTO closing_prices (security, last_day, last_close, closes)"
                                             " VALUES ((SELECT position FROM securities WHERE symbol = ?), ?, ?, ?)"
                                             " ON CONFLICT (security) DO UPDATE SET last_day = excluded.last_day,"
                                             " last_close = excluded.last_close, closes = excluded.closes"),
        { symbol, closes.lastDay.toString(Qt::ISODate), closes.ticks.constLast(), CloseCodec::encode(closes.ticks) });
}

Result<Security> SecurityStore::security(const QString& symbol)
{
    Security found;
    const Status status =
        m_database.read(Columns + QStringLiteral(" WHERE symbol = ?"), { symbol }, [&found](const QSqlQuery& row) {
            const auto text = [&row](int column) { return row.value(column).toString(); };
            const auto number = [&row](int column) { return row.value(column).toInt(); };
            found = { text(0), text(1), text(2), text(3), text(4), number(5), number(6), number(7), number(8), text(9),
                text(10), row.value(11).toLongLong() };
        });
    return status ? Result<Security>(found) : status;
}

Result<QStringList> SecurityStore::usedSymbols()
{
    return m_database.texts(
        QStringLiteral("SELECT symbol FROM positions UNION SELECT symbol FROM plans WHERE symbol IS NOT NULL"
                       " ORDER BY symbol"),
        {});
}

// In a file that leads to the same pages again and again, the rows would never end.
Status SecurityStore::readAll(const std::function<void(Security&&)>& take)
{
    RowReader row(m_database, Columns + QStringLiteral(" ORDER BY position"));
    qint64 position = std::numeric_limits<qint64>::min();
    while (row.next()) {
        if (row.number(12) <= position)
            return m_database.note(Error::DatabaseCorrupt);
        position = row.number(12);
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

Result<int> SecurityStore::count()
{
    return m_database.count(QStringLiteral("SELECT count(*) FROM securities"));
}

Result<CloseHistory> SecurityStore::closes(const QString& symbol)
{
    CloseHistory closes;
    ValueReader reader(m_database);
    addTo(reader, symbol, closes);
    const Status status = reader.read();
    return status ? Result<CloseHistory>(closes) : status;
}

void SecurityStore::addTo(ValueReader& reader, const QString& symbol, CloseHistory& closes)
{
    const QString one =
        QStringLiteral("(SELECT %1 FROM closing_prices JOIN securities ON security = position WHERE symbol = ?)");
    reader.add({ one.arg(QStringLiteral("last_day")), one.arg(QStringLiteral("closes")) }, { symbol, symbol },
        [&closes, symbol](const QSqlQuery& row, int column) -> Status {
            closes = CloseHistory();
            if (row.isNull(column))
                return {};
            closes.lastDay = QDate::fromString(row.value(column).toString(), Qt::ISODate);
            closes.ticks = CloseCodec::decode(row.value(column + 1).toByteArray()).value_or(QVector<qint64>());
            return closes.lastDay.isValid() && !closes.ticks.isEmpty() ? Status()
                                                                       : Status(Error::DamagedCloses, { symbol });
        });
}

Result<QStringList> SecurityStore::firstSymbols(const QString& subType, const QString& suffix, int limit)
{
    return m_database.texts(
        QStringLiteral("SELECT symbol FROM securities WHERE sub_type = ?"
                       " AND (? = '' OR substr(symbol, length(symbol) - length(?) + 1) = ?) ORDER BY position LIMIT ?"),
        { subType, suffix, suffix, suffix, limit });
}
