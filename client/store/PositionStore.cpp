#include "PositionStore.h"

PositionStore::PositionStore(Database& database)
    : m_database(database)
{
}

Status PositionStore::set(const StoredPosition& position)
{
    return m_database.execute(
        QStringLiteral("INSERT OR REPLACE INTO positions (trading_account, security_account, symbol, quantity,"
                       " tradeable_quantity) VALUES (?, ?, ?, ?, ?)"),
        { position.tradingAccount, position.securityAccount, position.symbol, position.quantity,
            position.tradeableQuantity });
}

QVector<StoredPosition> PositionStore::positions(
    const QString& tradingAccount, const QString& securityAccount, const QString& symbol)
{
    QSqlQuery query = m_database.query(
        QStringLiteral("SELECT trading_account, security_account, symbol, quantity, tradeable_quantity FROM positions"
                       " WHERE trading_account = ? AND (? = '' OR security_account = ?) AND symbol = ?"),
        { tradingAccount, securityAccount, securityAccount, symbol });
    QVector<StoredPosition> positions;
    while (query.next()) {
        positions << StoredPosition{ query.value(0).toString(), query.value(1).toString(), query.value(2).toString(),
            query.value(3).toLongLong(), query.value(4).toLongLong() };
    }
    return positions;
}
