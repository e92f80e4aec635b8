#pragma once

#include "Database.h"

#include <QStringList>

/// Role of a user in an approval chain.
enum class ChainRole { Execute, Forward };

/// The instructions that a user may place, their rules, and the users who handle them.
class AuthorityStore {
public:
    explicit AuthorityStore(Database& database);

    Status grant(const QString& userId, const QString& tradingAccount, const QString& instructionType);
    bool hasAuthority(const QString& userId, const QString& tradingAccount, const QString& instructionType);

    Status setRuleProperty(
        const QString& userId, const QString& tradingAccount, const QString& instructionType, int property);
    /// 0 if none is stored.
    int ruleProperty(const QString& userId, const QString& tradingAccount, const QString& instructionType);

    Status addChain(const QString& tradingAccount, const QString& instructionType, const QString& chainKey);
    /// Empty if the account has no chain for the type.
    QString chainKey(const QString& tradingAccount, const QString& instructionType);
    /// Appends users to the chain; it may contain a user more than once.
    Status addChainUsers(const QString& chainKey, ChainRole role, const QStringList& userNames);
    /// User names in chain order, with duplicates; empty if the chain is unknown.
    QStringList chainUsers(const QString& chainKey, ChainRole role);

private:
    Database& m_database;
};
