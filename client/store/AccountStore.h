#pragma once

#include "Database.h"

#include <QMap>
#include <QVector>

/// Asset property of accounts that are not credit accounts.
namespace AccountAsset {
inline const QString Ordinary = QStringLiteral("ordinary");
} // namespace AccountAsset

struct StoredAccount {
    QString tradingAccount;
    QString fundAccount;
    /// As displayed.
    QString name;
    QString clientNo;
    /// `AccountAsset::Ordinary` or `Orlo_Values::FundAccountType::Credit`.
    QString assetProperty;
    /// The branch at which the account is kept.
    QString branchNo;
    /// Security accounts by exchange code.
    QMap<QString, QString> exchangeAccounts;

    bool operator==(const StoredAccount& other) const
    {
        return tradingAccount == other.tradingAccount && fundAccount == other.fundAccount && name == other.name
            && clientNo == other.clientNo && assetProperty == other.assetProperty && branchNo == other.branchNo
            && exchangeAccounts == other.exchangeAccounts;
    }
};

/// Fund accounts with their exchange accounts and users.
class AccountStore {
public:
    explicit AccountStore(Database& database);

    Status add(const StoredAccount& account);
    /// Replaces the data of the account. Exchange accounts are added or replaced; the others are kept.
    Status change(const StoredAccount& account);
    /// Removes the security account at an exchange.
    Status removeExchange(const QString& tradingAccount, const QString& exchange);
    /// Removes the account with its security accounts. Nothing else may refer to it.
    Status remove(const QString& tradingAccount);
    /// The accounts to which plans, positions, users, approval chains or limits refer, ascending.
    Result<QStringList> usedAccounts();
    /// Appends the account to the user's accounts.
    Status assign(const QString& userId, const QString& tradingAccount);
    Status unassign(const QString& userId, const QString& tradingAccount);
    /// All accounts, ascending.
    Result<QVector<StoredAccount>> accounts();
    /// In the order of assignment; empty if the user is unknown or has none.
    Result<QVector<StoredAccount>> accountsOf(const QString& userId);
    /// A default account (empty trading account) if unknown.
    Result<StoredAccount> account(const QString& tradingAccount);

private:
    Result<QVector<StoredAccount>> read(const QString& condition, const QVariantList& values);
    Status readExchanges(StoredAccount& account);
    Status setExchanges(const StoredAccount& account);

    Database& m_database;
};
