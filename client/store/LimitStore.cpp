#include "LimitStore.h"

#include "StoredTime.h"

namespace {

QVariant valueOf(const std::optional<qint64>& limit)
{
    return limit ? QVariant(*limit) : QVariant();
}

std::optional<qint64> limitOf(const QVariant& value)
{
    return value.isNull() ? std::nullopt : std::optional<qint64>(value.toLongLong());
}

// The three limits in one text, NULL without usual ones. Each reading of a table costs a server the policies of the
// table.
const QString WidestLimits = QStringLiteral(
    "(SELECT max(quantity) || ' ' || max(amount) || ' ' || max(band) FROM"
    " (SELECT coalesce(own.largest_quantity, usual.largest_quantity) AS quantity,"
    " coalesce(own.largest_amount, usual.largest_amount) AS amount,"
    " coalesce(own.price_band_per_mille, usual.price_band_per_mille) AS band, TRUE AS is_usual"
    " FROM account_limits AS usual LEFT JOIN account_limits AS own ON own.trading_account = ?"
    " WHERE usual.trading_account = ''"
    " UNION ALL SELECT largest_quantity, largest_amount, price_band_per_mille, FALSE FROM limit_exceptions"
    " WHERE trading_account = ? AND last_day >= ? AND authorised_by <> ?) AS all_limits"
    " HAVING max(CASE WHEN is_usual THEN 1 ELSE 0 END) = 1)");

} // namespace

LimitStore::LimitStore(Database& database)
    : m_database(database)
{
}

Status LimitStore::set(const QString& tradingAccount, const AccountLimits& limits)
{
    return m_database.execute(
        QStringLiteral("INSERT INTO account_limits (trading_account, largest_quantity, largest_amount,"
                       " price_band_per_mille) VALUES (?, ?, ?, ?) ON CONFLICT (trading_account) DO UPDATE SET"
                       " largest_quantity = excluded.largest_quantity, largest_amount = excluded.largest_amount,"
                       " price_band_per_mille = excluded.price_band_per_mille"),
        { tradingAccount, valueOf(limits.quantity), valueOf(limits.amount), valueOf(limits.priceBandPerMille) });
}

Result<AccountLimits> LimitStore::own(const QString& tradingAccount)
{
    AccountLimits limits;
    Status status = m_database.read(
        QStringLiteral("SELECT largest_quantity, largest_amount, price_band_per_mille FROM account_limits"
                       " WHERE trading_account = ?"),
        { tradingAccount }, [&limits](const QSqlQuery& row) {
            limits = { limitOf(row.value(0)), limitOf(row.value(1)), limitOf(row.value(2)) };
        });
    return status ? Result<AccountLimits>(limits) : status;
}

Status LimitStore::authorise(const LimitException& exception)
{
    const AccountLimits& limits = exception.limits;
    return m_database.execute(
        QStringLiteral("INSERT INTO limit_exceptions (trading_account, largest_quantity, largest_amount,"
                       " price_band_per_mille, authorised_by, authorised_time, last_day, reason)"
                       " VALUES (?, ?, ?, ?, ?, ?, ?, ?)"),
        { exception.tradingAccount, valueOf(limits.quantity), valueOf(limits.amount), valueOf(limits.priceBandPerMille),
            exception.authorisedBy, StoredTime::toText(exception.authorisedTime),
            exception.lastDay.toString(Qt::ISODate), exception.reason });
}

// Nobody authorises an exception for himself.
void LimitStore::addTo(
    ValueReader& reader, const QString& tradingAccount, const QString& userId, const QDate& day, AccountLimits& limits)
{
    const QVariantList values{ tradingAccount, tradingAccount, day.toString(Qt::ISODate), userId };
    reader.add({ WidestLimits }, values, [&limits](const QSqlQuery& row, int column) -> Status {
        if (row.isNull(column))
            return Error::NoLimits;
        const QStringList texts = row.value(column).toString().split(QLatin1Char(' '));
        limits = { texts.value(0).toLongLong(), texts.value(1).toLongLong(), texts.value(2).toLongLong() };
        return {};
    });
}
