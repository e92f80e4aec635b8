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

/// The limit of an account in a column, NULL without a usual one.
QString widest(const QString& column)
{
    return QStringLiteral("(SELECT max(limit_value) FROM (SELECT coalesce(own.%1, usual.%1) AS limit_value"
                          " FROM account_limits AS usual LEFT JOIN account_limits AS own ON own.trading_account = ?"
                          " WHERE usual.trading_account = '' UNION ALL SELECT e.%1 FROM limit_exceptions AS e"
                          " JOIN account_limits AS usual ON usual.trading_account = ''"
                          " WHERE e.trading_account = ? AND e.last_day >= ? AND e.authorised_by <> ?) AS all_limits)")
        .arg(column);
}

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
    const QStringList columns{ QStringLiteral("largest_quantity"), QStringLiteral("largest_amount"),
        QStringLiteral("price_band_per_mille") };
    QStringList expressions;
    QVariantList values;
    for (const QString& column : columns) {
        expressions << widest(column);
        values << tradingAccount << tradingAccount << day.toString(Qt::ISODate) << userId;
    }
    reader.add(expressions, values, [&limits](const QSqlQuery& row, int column) -> Status {
        limits = { limitOf(row.value(column)), limitOf(row.value(column + 1)), limitOf(row.value(column + 2)) };
        return limits.quantity && limits.amount && limits.priceBandPerMille ? Status() : Error::NoLimits;
    });
}
