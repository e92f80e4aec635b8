#pragma once

#include "ValueReader.h"

#include <QHash>
#include <QVector>

struct StoredPosition {
    QString tradingAccount;
    QString securityAccount;
    QString symbol;
    /// Held quantity, in stored units.
    qint64 quantity = 0;
    /// Quantity that may be sold today, in stored units.
    qint64 tradeableQuantity = 0;
};

/// The positions of accounts.
class PositionStore {
public:
    explicit PositionStore(Database& database);

    Status set(const StoredPosition& position);
    Status remove(const StoredPosition& position);
    /// All positions, by account, security account and symbol.
    Result<QVector<StoredPosition>> all();
    /// Positions of the account in one security; an empty security account means all of them.
    Result<QVector<StoredPosition>> positions(
        const QString& tradingAccount, const QString& securityAccount, const QString& symbol);
    /// What an account holds of each security, in stored units.
    Result<QHash<QString, qint64>> held(const QString& tradingAccount);
    /// Adds the quantity that may be sold of these positions to what is read, in stored units.
    static void addTo(ValueReader& reader, const QString& tradingAccount, const QString& securityAccount,
        const QString& symbol, qint64& tradeableQuantity);

private:
    Result<QVector<StoredPosition>> read(const QString& condition, const QVariantList& values);

    Database& m_database;
};
