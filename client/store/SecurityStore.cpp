#include "SecurityStore.h"

#include "CloseCodec.h"
#include "RowReader.h"

SecurityStore::SecurityStore(Database& database)
    : m_database(database)
{
}

Status SecurityStore::add(const Security& s, const CloseHistory& closes)
{
    return m_database.transaction([&]() -> Status {
        const Result<qint64> position = m_database.insert(
            QStringLiteral("INSERT INTO securities (symbol, name, type, sub_type, exchange, price_precision,"
                           " display_factor, quantity_step, limit_per_mille, st_flag, st_text)"
                           " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?) RETURNING position"),
            { s.symbol, s.name, s.type, s.subType, s.exchange, s.pricePrecision, s.displayFactor, s.quantityStep,
                s.limitPerMille, s.stFlag, s.stText });
        if (!position || closes.ticks.isEmpty())
            return position.status();
        return m_database.execute(
            QStringLiteral("INSERT INTO closing_prices (security, last_day, last_close, closes) VALUES (?, ?, ?, ?)"),
            { *position, closes.lastDay.toString(Qt::ISODate), closes.ticks.constLast(),
                CloseCodec::encode(closes.ticks) });
    });
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

Result<int> SecurityStore::count()
{
    const auto found = m_database.value(QStringLiteral("SELECT count(*) FROM securities"));
    return found ? Result<int>(found->toInt()) : found.status();
}

Result<CloseHistory> SecurityStore::closes(const QString& symbol)
{
    QString lastDay;
    QByteArray blob;
    Status status = m_database.read(
        QStringLiteral("SELECT last_day, closes FROM closing_prices JOIN securities ON security = position"
                       " WHERE symbol = ?"),
        { symbol }, [&](const QSqlQuery& row) {
            lastDay = row.value(0).toString();
            blob = row.value(1).toByteArray();
        });
    if (!status)
        return status;
    if (lastDay.isEmpty())
        return CloseHistory();
    const CloseHistory history{ QDate::fromString(lastDay, Qt::ISODate),
        CloseCodec::decode(blob).value_or(QVector<qint64>()) };
    if (!history.lastDay.isValid() || history.ticks.isEmpty())
        return { Error::DamagedCloses, { symbol } };
    return history;
}

Result<QStringList> SecurityStore::firstSymbols(const QString& subType, const QString& suffix, int limit)
{
    return m_database.texts(
        QStringLiteral("SELECT symbol FROM securities WHERE sub_type = ?"
                       " AND (? = '' OR substr(symbol, length(symbol) - length(?) + 1) = ?) ORDER BY position LIMIT ?"),
        { subType, suffix, suffix, suffix, limit });
}
