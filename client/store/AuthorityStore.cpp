#include "AuthorityStore.h"

namespace {

QString textOf(ChainRole role)
{
    return role == ChainRole::Execute ? QStringLiteral("execute") : QStringLiteral("forward");
}

} // namespace

AuthorityStore::AuthorityStore(Database& database)
    : m_database(database)
{
}

Status AuthorityStore::grant(const QString& userId, const QString& tradingAccount, const QString& instructionType)
{
    return m_database.execute(
        QStringLiteral("INSERT INTO order_authorities (\"user\", trading_account, instruction_type) VALUES (?, ?, ?)"),
        { userId, tradingAccount, instructionType });
}

Status AuthorityStore::setRuleProperty(
    const QString& userId, const QString& tradingAccount, const QString& instructionType, int property)
{
    return m_database.execute(
        QStringLiteral("INSERT INTO rule_properties (\"user\", trading_account, instruction_type, property)"
                       " VALUES (?, ?, ?, ?) ON CONFLICT (\"user\", trading_account, instruction_type)"
                       " DO UPDATE SET property = excluded.property"),
        { userId, tradingAccount, instructionType, property });
}

Status AuthorityStore::revoke(const QString& userId, const QString& tradingAccount, const QString& instructionType)
{
    return m_database.transaction([&] {
        const QString condition =
            QStringLiteral(" WHERE \"user\" = ? AND trading_account = ? AND instruction_type = ?");
        const QVariantList values{ userId, tradingAccount, instructionType };
        Status status = m_database.execute(QStringLiteral("DELETE FROM order_authorities") + condition, values);
        return status ? m_database.execute(QStringLiteral("DELETE FROM rule_properties") + condition, values) : status;
    });
}

Result<QStringList> AuthorityStore::types(const QString& userId, const QString& tradingAccount)
{
    return m_database.texts(QStringLiteral("SELECT instruction_type FROM order_authorities WHERE \"user\" = ?"
                                           " AND trading_account = ? ORDER BY instruction_type"),
        { userId, tradingAccount });
}

Result<Rights> AuthorityStore::rights(
    const QString& userId, const QString& tradingAccount, const QString& instructionType)
{
    Rights rights;
    Status status = m_database.read(
        QStringLiteral("SELECT EXISTS (SELECT 1 FROM order_authorities"
                       " WHERE \"user\" = ? AND trading_account = ? AND instruction_type = ?),"
                       " (SELECT property FROM rule_properties"
                       " WHERE \"user\" = ? AND trading_account = ? AND instruction_type = ?),"
                       " (SELECT chain_key FROM approval_chains WHERE trading_account = ? AND instruction_type = ?)"),
        { userId, tradingAccount, instructionType, userId, tradingAccount, instructionType, tradingAccount,
            instructionType },
        [&rights](const QSqlQuery& row) {
            rights = { row.value(0).toBool(), row.value(1).toInt(), row.value(2).toString() };
        });
    return status ? Result<Rights>(rights) : status;
}

void AuthorityStore::addTo(ValueReader& reader, const OrderParties& of, OrderRights& rights)
{
    const QStringList expressions{
        QStringLiteral("(SELECT a.asset_property FROM accounts AS a JOIN user_accounts AS u"
                       " ON u.trading_account = a.trading_account WHERE u.user = ? AND a.trading_account = ?)"),
        QStringLiteral("(SELECT security_account FROM exchange_accounts WHERE trading_account = ? AND exchange = ?)"),
        QStringLiteral("EXISTS (SELECT 1 FROM order_authorities"
                       " WHERE \"user\" = ? AND trading_account = ? AND instruction_type = ?)"),
        QStringLiteral("(SELECT property FROM rule_properties"
                       " WHERE \"user\" = ? AND trading_account = ? AND instruction_type = ?)"),
        QStringLiteral("(SELECT sum(DISTINCT CASE role WHEN 'execute' THEN 1 ELSE 2 END) FROM chain_users WHERE"
                       " chain_key = (SELECT chain_key FROM approval_chains"
                       " WHERE trading_account = ? AND instruction_type = ?)"
                       " AND (role = 'execute' AND user_name = ? OR role = 'forward' AND user_name = ?))"),
    };
    const QVariantList values{ of.user, of.tradingAccount, of.tradingAccount, of.exchange, of.user, of.tradingAccount,
        of.instructionType, of.user, of.tradingAccount, of.instructionType, of.tradingAccount, of.instructionType,
        of.executor, of.assignee };
    reader.add(expressions, values, [&rights](const QSqlQuery& row, int column) {
        rights = { !row.isNull(column), row.value(column).toString(), row.value(column + 1).toString(),
            row.value(column + 2).toBool(), row.value(column + 3).toInt(), (row.value(column + 4).toInt() & 1) != 0,
            (row.value(column + 4).toInt() & 2) != 0 };
        return Status();
    });
}

Status AuthorityStore::addChain(const QString& tradingAccount, const QString& instructionType, const QString& chainKey)
{
    return m_database.execute(
        QStringLiteral("INSERT INTO approval_chains (trading_account, instruction_type, chain_key) VALUES (?, ?, ?)"),
        { tradingAccount, instructionType, chainKey });
}

Result<QStringList> AuthorityStore::chainTypes(const QString& tradingAccount)
{
    return m_database.texts(
        QStringLiteral(
            "SELECT instruction_type FROM approval_chains WHERE trading_account = ? ORDER BY instruction_type"),
        { tradingAccount });
}

Result<QString> AuthorityStore::chainKey(const QString& tradingAccount, const QString& instructionType)
{
    const auto key = m_database.value(
        QStringLiteral("SELECT chain_key FROM approval_chains WHERE trading_account = ? AND instruction_type = ?"),
        { tradingAccount, instructionType });
    return key ? Result<QString>(key->toString()) : key.status();
}

Status AuthorityStore::addChainUsers(const QString& chainKey, ChainRole role, const QStringList& userNames)
{
    return m_database.transaction([&]() -> Status {
        for (const QString& name : userNames) {
            Status status = m_database.execute(
                QStringLiteral("INSERT INTO chain_users (chain_key, role, position, user_name) VALUES (?, ?,"
                               " (SELECT count(*) FROM chain_users WHERE chain_key = ? AND role = ?), ?)"),
                { chainKey, textOf(role), chainKey, textOf(role), name });
            if (!status)
                return status;
        }
        return {};
    });
}

Status AuthorityStore::removeChainUsers(const QString& chainKey, ChainRole role)
{
    return m_database.execute(
        QStringLiteral("DELETE FROM chain_users WHERE chain_key = ? AND role = ?"), { chainKey, textOf(role) });
}

Result<QStringList> AuthorityStore::chainUsers(const QString& chainKey, ChainRole role)
{
    return m_database.texts(
        QStringLiteral("SELECT user_name FROM chain_users WHERE chain_key = ? AND role = ? ORDER BY position"),
        { chainKey, textOf(role) });
}
