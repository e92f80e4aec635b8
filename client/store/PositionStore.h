#pragma once

#include "ValueReader.h"

#include <QDate>
#include <QHash>
#include <QVector>

struct StoredPosition {
    QString tradingAccount;
    QString securityAccount;
    QString symbol;
    /// Held quantity, in stored units.
    qint64 quantity = 0;
    /// Quantity that may be sold on a day, in stored units.
    qint64 tradeableQuantity = 0;
};

/// The positions of accounts.
class PositionStore {
public:
    explicit PositionStore(Database& database);

    /// Replaces a position. Nothing of it was bought on a day from which it cannot be sold yet, or is reserved.
    Status set(const StoredPosition& position);
    Status remove(const StoredPosition& position);
    /// All positions, by account, security account and symbol, without what was bought today.
    Result<QVector<StoredPosition>> all();
    /// The same of an account in one security; an empty security account means all of them.
    Result<QVector<StoredPosition>> stored(
        const QString& tradingAccount, const QString& securityAccount, const QString& symbol);
    /// Positions of the account in one security, with what may be sold of them on a day; an empty security account
    /// means all of them.
    Result<QVector<StoredPosition>> positions(
        const QString& tradingAccount, const QString& securityAccount, const QString& symbol, const QDate& day);
    /// What an account holds of each security, in stored units.
    Result<QHash<QString, qint64>> held(const QString& tradingAccount);
    /// Adds the quantity that may be sold of these positions on a day to what is read, in stored units.
    static void addTo(ValueReader& reader, const QString& tradingAccount, const QString& securityAccount,
        const QString& symbol, const QDate& day, qint64& tradeableQuantity);

private:
    Result<QVector<StoredPosition>> read(const QString& sellable, const QString& condition, const QVariantList& values);

    Database& m_database;
};
