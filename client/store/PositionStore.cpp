#include "PositionStore.h"

namespace {

// What was bought before the day, and without what open sales of the day reserve.
const QString Sellable = QStringLiteral("tradeable_quantity + CASE WHEN bought_day < ? THEN bought_quantity ELSE 0 END"
                                        " - CASE WHEN reserved_day >= ? THEN reserved_quantity ELSE 0 END");
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
                       " SET quantity = excluded.quantity, tradeable_quantity = excluded.tradeable_quantity,"
                       " bought_quantity = 0, bought_day = NULL, reserved_quantity = 0, reserved_day = NULL"),
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
    return read(QStringLiteral("tradeable_quantity"),
        QStringLiteral("true ORDER BY trading_account, security_account, symbol"), {});
}

Result<QVector<StoredPosition>> PositionStore::stored(
    const QString& tradingAccount, const QString& securityAccount, const QString& symbol)
{
    return read(
        QStringLiteral("tradeable_quantity"), Condition, { tradingAccount, securityAccount, securityAccount, symbol });
}

Result<QVector<StoredPosition>> PositionStore::positions(
    const QString& tradingAccount, const QString& securityAccount, const QString& symbol, const QDate& day)
{
    const QString dayText = day.toString(Qt::ISODate);
    return read(Sellable, Condition, { dayText, dayText, tradingAccount, securityAccount, securityAccount, symbol });
}

Result<QVector<StoredPosition>> PositionStore::read(
    const QString& sellable, const QString& condition, const QVariantList& values)
{
    QVector<StoredPosition> positions;
    Status status = m_database.read(
        QStringLiteral("SELECT trading_account, security_account, symbol, quantity, %1 FROM positions WHERE %2")
            .arg(sellable, condition),
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
    const QString& symbol, const QDate& day, qint64& tradeableQuantity)
{
    const QString sum = QStringLiteral("(SELECT CAST(sum(%1) AS bigint) FROM positions WHERE %2)");
    const QString dayText = day.toString(Qt::ISODate);
    reader.add({ sum.arg(Sellable, Condition) },
        { dayText, dayText, tradingAccount, securityAccount, securityAccount, symbol },
        [&tradeableQuantity](const QSqlQuery& row, int column) {
            tradeableQuantity = row.value(column).toLongLong();
            return Status();
        });
}
