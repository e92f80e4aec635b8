#include "CashStore.h"

CashStore::CashStore(Database& database)
    : m_database(database)
{
}

Status CashStore::set(const QString& tradingAccount, const std::optional<qint64>& fen)
{
    if (!fen)
        return m_database.execute(
            QStringLiteral("DELETE FROM account_cash WHERE trading_account = ?"), { tradingAccount });
    return m_database.execute(QStringLiteral("INSERT INTO account_cash (trading_account, fen) VALUES (?, ?)"
                                             " ON CONFLICT (trading_account) DO UPDATE SET fen = excluded.fen,"
                                             " reserved_fen = 0, reserved_day = NULL"),
        { tradingAccount, *fen });
}

Result<std::optional<qint64>> CashStore::available(const QString& tradingAccount, const QDate& day)
{
    std::optional<qint64> fen;
    ValueReader reader(m_database);
    addTo(reader, tradingAccount, day, fen);
    const Status status = reader.read();
    return status ? Result<std::optional<qint64>>(fen) : status;
}

void CashStore::addTo(ValueReader& reader, const QString& tradingAccount, const QDate& day, std::optional<qint64>& fen)
{
    const QString available = QStringLiteral("(SELECT fen - CASE WHEN reserved_day >= ? THEN reserved_fen ELSE 0 END"
                                             " FROM account_cash WHERE trading_account = ?)");
    reader.add({ available }, { day.toString(Qt::ISODate), tradingAccount }, [&fen](const QSqlQuery& row, int column) {
        if (!row.isNull(column))
            fen = row.value(column).toLongLong();
        return Status();
    });
}
