#pragma once

#include "AccountStore.h"
#include "AuthorityStore.h"

#include <QHash>

/// A user's accounts and authorities, read once and then kept in memory.
class AccountDirectory {
public:
    /// Reads all data of the user and replaces the present ones. If it fails, there are none.
    Status load(Database& database, const QString& userId);
    void clear();
    bool operator==(const AccountDirectory& other) const;

    const QVector<StoredAccount>& accounts() const { return m_accounts; }
    /// Null if the account is unknown or not the user's; valid until the next `load`.
    const StoredAccount* find(const QString& tradingAccount) const;
    /// Client numbers of the user's accounts, each once.
    QStringList clientNumbers() const;

    bool hasAuthority(const QString& tradingAccount, const QString& instructionType) const;
    /// 0 if none is stored.
    int ruleProperty(const QString& tradingAccount, const QString& instructionType) const;
    /// Empty if the account has no chain for the type.
    QString chainKey(const QString& tradingAccount, const QString& instructionType) const;
    /// Why the form offers no account of the user for a new plan; success if it offers one.
    Status newPlanError(const QString& userId) const;
    /// User names in chain order, with duplicates; empty if the chain is unknown.
    QStringList executors(const QString& chainKey) const;
    QStringList forwarders(const QString& chainKey) const;

private:
    struct ChainUsers {
        QStringList executors;
        QStringList forwarders;

        bool operator==(const ChainUsers& other) const
        {
            return executors == other.executors && forwarders == other.forwarders;
        }
    };
    using RightsKey = QPair<QString, QString>;

    Status read(Database& database, const QString& userId);
    bool mayTrade(const StoredAccount& account) const;
    Status readRights(AuthorityStore& store, const QString& userId, const QString& tradingAccount);
    Status readChain(AuthorityStore& store, const QString& chainKey);
    Rights rights(const QString& tradingAccount, const QString& instructionType) const;

    QVector<StoredAccount> m_accounts;
    QHash<QString, int> m_positions;
    QHash<RightsKey, Rights> m_rights;
    QHash<QString, ChainUsers> m_chains;
};
