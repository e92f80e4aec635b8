#pragma once

#include "Database.h"

#include <QDate>
#include <QDateTime>

#include <optional>

/// The largest plan or instruction that is accepted for an account. An absent value means the usual limit.
struct AccountLimits {
    /// In displayed units.
    std::optional<qint64> quantity;
    /// In yuan.
    std::optional<qint64> amount;
    /// Largest distance of a price from the last close; 100 means ten percent.
    std::optional<qint64> priceBandPerMille;
};

/// Wider limits of an account for some time.
struct LimitException {
    QString tradingAccount;
    AccountLimits limits;
    /// Id of the user who authorised it.
    QString authorisedBy;
    QDateTime authorisedTime;
    /// The last day on which it applies.
    QDate lastDay;
    QString reason;
};

/// The limits of accounts and their authorised exceptions.
class LimitStore {
public:
    explicit LimitStore(Database& database);

    /// Sets the limits of an account; an empty account means the usual limits, which must be complete.
    Status set(const QString& tradingAccount, const AccountLimits& limits);
    Status authorise(const LimitException& exception);
    /// The limits of an account for a user on a day, all of them present: its own or the usual ones, widened by
    /// exceptions that somebody else authorised. Fails if there are no usual limits.
    Result<AccountLimits> limits(const QString& tradingAccount, const QString& userId, const QDate& day);

private:
    Result<AccountLimits> ordinary(const QString& tradingAccount);

    Database& m_database;
};
