#include "PositionStore.h"

namespace {

const QString Condition = QStringLiteral("trading_account = ? AND (? = '' OR security_account = ?) AND symbol = ?");

} // namespace

PositionStore::PositionStore(Database& database)
    : m_database(database)
{
}

Status PositionStore::set(const StoredPosition& position)
{
    return m_database.execute(
        QStringLiteral("INSERT INTO positions (trading_account, security_account, symbol, quantity,"
                       " tradeable_quantity) VALUES (?, ?, ?, ?, ?)"
                       " ON CONFLICT (trading_account, security_account, symbol) DO UPDATE"
                       " SET quantity = excluded.quantity, tradeable_quantity = excluded.tradeable_quantity"),
        { position.tradingAccount, position.securityAccount, position.symbol, position.quantity,
            position.tradeableQuantity });
}

Status PositionStore::remove(const StoredPosition& position)
{
    return m_database.execute(
        QStringLiteral("DELETE FROM positions WHERE trading_account = ? AND security_account = ? AND symbol = ?"),
        { position.tradingAccount, position.securityAccount, position.symbol });
}

Result<QVector<StoredPosition>> PositionStore::all()
{
    return read(QStringLiteral("true ORDER BY trading_account, security_account, symbol"), {});
}

Result<QVector<StoredPosition>> PositionStore::positions(
    const QString& tradingAccount, const QString& securityAccount, const QString& symbol)
{
    return read(Condition, { tradingAccount, securityAccount, securityAccount, symbol });
}

Result<QVector<StoredPosition>> PositionStore::read(const QString& condition, const QVariantList& values)
{
    QVector<StoredPosition> positions;
    Status status = m_database.read(
        QStringLiteral("SELECT trading_account, security_account, symbol, quantity, tradeable_quantity FROM positions"
                       " WHERE ")
            + condition,
        values, [&positions](const QSqlQuery& row) {
            positions << StoredPosition{ row.value(0).toString(), row.value(1).toString(), row.value(2).toString(),
                row.value(3).toLongLong(), row.value(4).toLongLong() };
        });
    return status ? Result<QVector<StoredPosition>>(positions) : status;
}

Result<QHash<QString, qint64>> PositionStore::held(const QString& tradingAccount)
{
    QHash<QString, qint64> quantities;
    Status status = m_database.read(
        QStringLiteral("SELECT symbol, quantity FROM positions WHERE trading_account = ? AND quantity > 0"),
        { tradingAccount },
        [&quantities](const QSqlQuery& row) { quantities[row.value(0).toString()] += row.value(1).toLongLong(); });
    return status ? Result<QHash<QString, qint64>>(quantities) : status;
}

void PositionStore::addTo(ValueReader& reader, const QString& tradingAccount, const QString& securityAccount,
    const QString& symbol, qint64& tradeableQuantity)
{
    const QString sum = QStringLiteral("(SELECT CAST(sum(tradeable_quantity) AS bigint) FROM positions WHERE %1)");
    reader.add({ sum.arg(Condition) }, { tradingAccount, securityAccount, securityAccount, symbol },
        [&tradeableQuantity](const QSqlQuery& row, int column) {
            tradeableQuantity = row.value(column).toLongLong();
            return Status();
        });
}
