#pragma once

#include "ValueReader.h"

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
    /// The limits that are set for an account, or the usual ones for an empty account.
    Result<AccountLimits> own(const QString& tradingAccount);
    Status authorise(const LimitException& exception);
    /// Adds the limits of an account for a user on a day to what is read, all of them present: its own or the usual
    /// ones, widened by exceptions that somebody else authorised. Fails if there are no usual limits.
    static void addTo(ValueReader& reader, const QString& tradingAccount, const QString& userId, const QDate& day,
        AccountLimits& limits);

private:
    Database& m_database;
};
