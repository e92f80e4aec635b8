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

AccountLimits limitsOf(const QSqlQuery& row)
{
    return { limitOf(row.value(0)), limitOf(row.value(1)), limitOf(row.value(2)) };
}

// An absent limit is less than any other.
AccountLimits wider(const AccountLimits& a, const AccountLimits& b)
{
    return { qMax(a.quantity, b.quantity), qMax(a.amount, b.amount), qMax(a.priceBandPerMille, b.priceBandPerMille) };
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
Result<AccountLimits> LimitStore::limits(const QString& tradingAccount, const QString& userId, const QDate& day)
{
    Result<AccountLimits> limits = ordinary(tradingAccount);
    if (!limits)
        return limits;
    Status status = m_database.read(
        QStringLiteral("SELECT largest_quantity, largest_amount, price_band_per_mille FROM limit_exceptions"
                       " WHERE trading_account = ? AND last_day >= ? AND authorised_by <> ?"),
        { tradingAccount, day.toString(Qt::ISODate), userId },
        [&limits](const QSqlQuery& row) { *limits = wider(*limits, limitsOf(row)); });
    return status ? limits : status;
}

Result<AccountLimits> LimitStore::ordinary(const QString& tradingAccount)
{
    std::optional<AccountLimits> limits;
    Status status = m_database.read(
        QStringLiteral("SELECT coalesce(own.largest_quantity, usual.largest_quantity),"
                       " coalesce(own.largest_amount, usual.largest_amount),"
                       " coalesce(own.price_band_per_mille, usual.price_band_per_mille)"
                       " FROM account_limits AS usual LEFT JOIN account_limits AS own ON own.trading_account = ?"
                       " WHERE usual.trading_account = ''"),
        { tradingAccount }, [&limits](const QSqlQuery& row) { limits = limitsOf(row); });
    if (!status)
        return status;
    return limits ? Result<AccountLimits>(*limits) : Result<AccountLimits>(Error::NoLimits);
}
