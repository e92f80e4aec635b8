#include "AccountStore.h"

AccountStore::AccountStore(Database& database)
    : m_database(database)
{
}

Status AccountStore::add(const StoredAccount& account)
{
    return m_database.transaction([&] {
        Status status = m_database.execute(
            QStringLiteral("INSERT INTO accounts (trading_account, fund_account, name, client_no, asset_property,"
                           " branch_no) VALUES (?, ?, ?, ?, ?, ?)"),
            { account.tradingAccount, account.fundAccount, account.name, account.clientNo, account.assetProperty,
                account.branchNo });
        const auto& exchanges = account.exchangeAccounts;
        for (auto it = exchanges.cbegin(); it != exchanges.cend() && status; ++it) {
            status = m_database.execute(
                QStringLiteral("INSERT INTO exchange_accounts (trading_account, exchange, security_account)"
                               " VALUES (?, ?, ?)"),
                { account.tradingAccount, it.key(), it.value() });
        }
        return status;
    });
}

Status AccountStore::assign(const QString& userId, const QString& tradingAccount)
{
    return m_database.execute(QStringLiteral("INSERT INTO user_accounts (user, position, trading_account)"
                                             " VALUES (?, (SELECT count(*) FROM user_accounts WHERE user = ?), ?)"),
        { userId, userId, tradingAccount });
}

QVector<StoredAccount> AccountStore::accountsOf(const QString& userId)
{
    return read(QStringLiteral("JOIN user_accounts USING (trading_account) WHERE user = ? ORDER BY position"), userId);
}

StoredAccount AccountStore::account(const QString& tradingAccount)
{
    return read(QStringLiteral("WHERE trading_account = ?"), tradingAccount).value(0);
}

QVector<StoredAccount> AccountStore::read(const QString& condition, const QString& value)
{
    QSqlQuery query = m_database.query(
        QStringLiteral("SELECT trading_account, fund_account, name, client_no, asset_property, branch_no"
                       " FROM accounts ")
            + condition,
        { value });
    QVector<StoredAccount> accounts;
    while (query.next()) {
        const QString tradingAccount = query.value(0).toString();
        accounts << StoredAccount{ tradingAccount, query.value(1).toString(), query.value(2).toString(),
            query.value(3).toString(), query.value(4).toString(), query.value(5).toString(),
            exchangeAccounts(tradingAccount) };
    }
    return accounts;
}

QMap<QString, QString> AccountStore::exchangeAccounts(const QString& tradingAccount)
{
    QSqlQuery query = m_database.query(
        QStringLiteral("SELECT exchange, security_account FROM exchange_accounts WHERE trading_account = ?"),
        { tradingAccount });
    QMap<QString, QString> result;
    while (query.next())
        result.insert(query.value(0).toString(), query.value(1).toString());
    return result;
}
