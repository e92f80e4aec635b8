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
        return status ? setExchanges(account) : status;
    });
}

Status AccountStore::change(const StoredAccount& account)
{
    return m_database.transaction([&] {
        Status status = m_database.execute(
            QStringLiteral("UPDATE accounts SET fund_account = ?, name = ?, client_no = ?, asset_property = ?,"
                           " branch_no = ? WHERE trading_account = ?"),
            { account.fundAccount, account.name, account.clientNo, account.assetProperty, account.branchNo,
                account.tradingAccount });
        return status ? setExchanges(account) : status;
    });
}

Status AccountStore::removeExchange(const QString& tradingAccount, const QString& exchange)
{
    return m_database.execute(
        QStringLiteral("DELETE FROM exchange_accounts WHERE trading_account = ? AND exchange = ?"),
        { tradingAccount, exchange });
}

Status AccountStore::remove(const QString& tradingAccount)
{
    return m_database.transaction([&] {
        Status status = m_database.execute(
            QStringLiteral("DELETE FROM exchange_accounts WHERE trading_account = ?"), { tradingAccount });
        return status
            ? m_database.execute(QStringLiteral("DELETE FROM accounts WHERE trading_account = ?"), { tradingAccount })
            : status;
    });
}

Result<QStringList> AccountStore::usedAccounts()
{
    const QStringList tables{ QStringLiteral("plans"), QStringLiteral("positions"), QStringLiteral("user_accounts"),
        QStringLiteral("order_authorities"), QStringLiteral("rule_properties"), QStringLiteral("approval_chains"),
        QStringLiteral("account_limits"), QStringLiteral("limit_exceptions") };
    QStringList parts;
    for (const QString& table : tables)
        parts << QStringLiteral("SELECT trading_account FROM ") + table;
    return m_database.texts(
        QStringLiteral("SELECT trading_account FROM (%1) AS used WHERE trading_account <> '' ORDER BY trading_account")
            .arg(parts.join(QStringLiteral(" UNION "))),
        {});
}

Status AccountStore::setExchanges(const StoredAccount& account)
{
    Status status;
    const auto& exchanges = account.exchangeAccounts;
    for (auto it = exchanges.cbegin(); it != exchanges.cend() && status; ++it) {
        status = m_database.execute(
            QStringLiteral("INSERT INTO exchange_accounts (trading_account, exchange, security_account)"
                           " VALUES (?, ?, ?) ON CONFLICT (trading_account, exchange)"
                           " DO UPDATE SET security_account = excluded.security_account"
                           " WHERE exchange_accounts.security_account <> excluded.security_account"),
            { account.tradingAccount, it.key(), it.value() });
    }
    return status;
}

Status AccountStore::assign(const QString& userId, const QString& tradingAccount)
{
    return m_database.execute(
        QStringLiteral("INSERT INTO user_accounts (\"user\", position, trading_account) VALUES (?,"
                       " (SELECT coalesce(max(position) + 1, 0) FROM user_accounts WHERE \"user\" = ?), ?)"),
        { userId, userId, tradingAccount });
}

Status AccountStore::unassign(const QString& userId, const QString& tradingAccount)
{
    return m_database.execute(QStringLiteral("DELETE FROM user_accounts WHERE \"user\" = ? AND trading_account = ?"),
        { userId, tradingAccount });
}

Result<QVector<StoredAccount>> AccountStore::accounts()
{
    return read(QStringLiteral("ORDER BY a.trading_account"), {});
}

Result<QVector<StoredAccount>> AccountStore::accountsOf(const QString& userId)
{
    return read(QStringLiteral("JOIN user_accounts AS u ON u.trading_account = a.trading_account WHERE u.user = ?"
                               " ORDER BY u.position"),
        { userId });
}

Result<StoredAccount> AccountStore::account(const QString& tradingAccount)
{
    const auto found = read(QStringLiteral("WHERE a.trading_account = ?"), { tradingAccount });
    return found ? Result<StoredAccount>(found->value(0)) : found.status();
}

Result<QVector<StoredAccount>> AccountStore::read(const QString& condition, const QVariantList& values)
{
    QVector<StoredAccount> accounts;
    Status status = m_database.read(
        QStringLiteral("SELECT a.trading_account, a.fund_account, a.name, a.client_no, a.asset_property, a.branch_no"
                       " FROM accounts AS a ")
            + condition,
        values, [&accounts](const QSqlQuery& row) {
            accounts << StoredAccount{ row.value(0).toString(), row.value(1).toString(), row.value(2).toString(),
                row.value(3).toString(), row.value(4).toString(), row.value(5).toString(), {} };
        });
    for (auto account = accounts.begin(); account != accounts.end() && status; ++account)
        status = readExchanges(*account);
    return status ? Result<QVector<StoredAccount>>(accounts) : status;
}

Status AccountStore::readExchanges(StoredAccount& account)
{
    return m_database.read(
        QStringLiteral("SELECT exchange, security_account FROM exchange_accounts WHERE trading_account = ?"),
        { account.tradingAccount }, [&account](const QSqlQuery& row) {
            account.exchangeAccounts.insert(row.value(0).toString(), row.value(1).toString());
        });
}
