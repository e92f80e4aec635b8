#pragma once

#include "Database.h"

#include <QStringList>

/// Part that a user plays in an approval chain.
enum class ChainRole { Execute, Forward };

/// Which instructions a user may place, under which rule, and who handles them.
class AuthorityStore {
public:
    explicit AuthorityStore(Database& database);

    Status grant(const QString& userId, const QString& tradingAccount, const QString& instructionType);
    bool hasAuthority(const QString& userId, const QString& tradingAccount, const QString& instructionType);

    Status setRuleProperty(
        const QString& userId, const QString& tradingAccount, const QString& instructionType, int property);
    /// 0 when none is stored.
    int ruleProperty(const QString& userId, const QString& tradingAccount, const QString& instructionType);

    Status addChain(const QString& tradingAccount, const QString& instructionType, const QString& chainKey);
    /// Empty when the account has no chain for the type.
    QString chainKey(const QString& tradingAccount, const QString& instructionType);
    /// Appends users to the chain; the same user may stand in it more than once.
    Status addChainUsers(const QString& chainKey, ChainRole role, const QStringList& userNames);
    /// User names in chain order, duplicates kept; empty when the chain is unknown.
    QStringList chainUsers(const QString& chainKey, ChainRole role);

private:
    Database& m_database;
};
