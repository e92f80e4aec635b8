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
        QStringLiteral("INSERT INTO order_authorities (user, trading_account, instruction_type) VALUES (?, ?, ?)"),
        { userId, tradingAccount, instructionType });
}

bool AuthorityStore::hasAuthority(const QString& userId, const QString& tradingAccount, const QString& instructionType)
{
    QSqlQuery query =
        m_database.query(QStringLiteral("SELECT 1 FROM order_authorities WHERE user = ? AND trading_account = ?"
                                        " AND instruction_type = ?"),
            { userId, tradingAccount, instructionType });
    return query.next();
}

Status AuthorityStore::setRuleProperty(
    const QString& userId, const QString& tradingAccount, const QString& instructionType, int property)
{
    return m_database.execute(
        QStringLiteral("INSERT OR REPLACE INTO rule_properties (user, trading_account, instruction_type, property)"
                       " VALUES (?, ?, ?, ?)"),
        { userId, tradingAccount, instructionType, property });
}

int AuthorityStore::ruleProperty(const QString& userId, const QString& tradingAccount, const QString& instructionType)
{
    QSqlQuery query =
        m_database.query(QStringLiteral("SELECT property FROM rule_properties WHERE user = ? AND trading_account = ?"
                                        " AND instruction_type = ?"),
            { userId, tradingAccount, instructionType });
    return query.next() ? query.value(0).toInt() : 0;
}

Status AuthorityStore::addChain(const QString& tradingAccount, const QString& instructionType, const QString& chainKey)
{
    return m_database.execute(
        QStringLiteral("INSERT INTO approval_chains (trading_account, instruction_type, chain_key) VALUES (?, ?, ?)"),
        { tradingAccount, instructionType, chainKey });
}

QString AuthorityStore::chainKey(const QString& tradingAccount, const QString& instructionType)
{
    QSqlQuery query = m_database.query(
        QStringLiteral("SELECT chain_key FROM approval_chains WHERE trading_account = ? AND instruction_type = ?"),
        { tradingAccount, instructionType });
    return query.next() ? query.value(0).toString() : QString();
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

QStringList AuthorityStore::chainUsers(const QString& chainKey, ChainRole role)
{
    QSqlQuery query = m_database.query(
        QStringLiteral("SELECT user_name FROM chain_users WHERE chain_key = ? AND role = ? ORDER BY position"),
        { chainKey, textOf(role) });
    QStringList names;
    while (query.next())
        names << query.value(0).toString();
    return names;
}
