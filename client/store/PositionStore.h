#pragma once

#include "Database.h"

#include <QVector>

struct StoredPosition {
    QString tradingAccount;
    QString securityAccount;
    QString symbol;
    /// Held, in stored units.
    qint64 quantity = 0;
    /// May be sold today, in stored units.
    qint64 tradeableQuantity = 0;
};

/// What accounts hold.
class PositionStore {
public:
    explicit PositionStore(Database& database);

    Status set(const StoredPosition& position);
    /// Positions of the account in one security; an empty security account stands for all of them.
    QVector<StoredPosition> positions(
        const QString& tradingAccount, const QString& securityAccount, const QString& symbol);

private:
    Database& m_database;
};
