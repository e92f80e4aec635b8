#pragma once

#include "Database.h"

#include <QStringList>

/// Role of a user in an approval chain.
enum class ChainRole { Execute, Forward };

/// What a user may do with instructions of a type from an account.
struct Rights {
    bool authority = false;
    /// 0 if none is stored.
    int ruleProperty = 0;
    /// The approval chain of the account and type; empty if there is none.
    QString chainKey;
};

/// The instructions that a user may place, their rules, and the users who handle them.
class AuthorityStore {
public:
    explicit AuthorityStore(Database& database);

    Status grant(const QString& userId, const QString& tradingAccount, const QString& instructionType);
    Status setRuleProperty(
        const QString& userId, const QString& tradingAccount, const QString& instructionType, int property);
    Result<Rights> rights(const QString& userId, const QString& tradingAccount, const QString& instructionType);

    Status addChain(const QString& tradingAccount, const QString& instructionType, const QString& chainKey);
    /// Appends users to the chain; it may contain a user more than once.
    Status addChainUsers(const QString& chainKey, ChainRole role, const QStringList& userNames);
    /// User names in chain order, with duplicates; empty if the chain is unknown.
    Result<QStringList> chainUsers(const QString& chainKey, ChainRole role);

private:
    Database& m_database;
};
