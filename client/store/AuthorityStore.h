#pragma once

#include "ValueReader.h"

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

    bool operator==(const Rights& other) const
    {
        return authority == other.authority && ruleProperty == other.ruleProperty && chainKey == other.chainKey;
    }
};

/// A user with the account, exchange and type of an instruction, and the users who execute and handle it, by name.
struct OrderParties {
    QString user;
    QString tradingAccount;
    QString exchange;
    QString instructionType;
    QString executor;
    QString assignee;
};

/// What the parties of an instruction may do.
struct OrderRights {
    /// Whether the account is the user's, and its asset property.
    bool isOwn = false;
    QString assetProperty;
    /// The account's security account at the exchange; empty if there is none.
    QString securityAccount;
    /// Whether the user may place such instructions, and their rule property; 0 if none is stored.
    bool authority = false;
    int ruleProperty = 0;
    bool knowsExecutor = false;
    bool knowsAssignee = false;
};

/// The instructions that a user may place, their rules, and the users who handle them.
class AuthorityStore {
public:
    explicit AuthorityStore(Database& database);

    Status grant(const QString& userId, const QString& tradingAccount, const QString& instructionType);
    Status setRuleProperty(
        const QString& userId, const QString& tradingAccount, const QString& instructionType, int property);
    /// Removes the authority and its rule property.
    Status revoke(const QString& userId, const QString& tradingAccount, const QString& instructionType);
    /// The instruction types that the user may place from the account, ascending.
    Result<QStringList> types(const QString& userId, const QString& tradingAccount);
    Result<Rights> rights(const QString& userId, const QString& tradingAccount, const QString& instructionType);
    /// Adds the rights of the parties to what is read.
    static void addTo(ValueReader& reader, const OrderParties& parties, OrderRights& rights);

    Status addChain(const QString& tradingAccount, const QString& instructionType, const QString& chainKey);
    /// The instruction types of an account with a chain, ascending.
    Result<QStringList> chainTypes(const QString& tradingAccount);
    /// Empty if there is none.
    Result<QString> chainKey(const QString& tradingAccount, const QString& instructionType);
    /// Appends users to the chain; it may contain a user more than once.
    Status addChainUsers(const QString& chainKey, ChainRole role, const QStringList& userNames);
    Status removeChainUsers(const QString& chainKey, ChainRole role);
    /// User names in chain order, with duplicates; empty if the chain is unknown.
    Result<QStringList> chainUsers(const QString& chainKey, ChainRole role);

private:
    Database& m_database;
};
