#pragma once

#include "AccountStore.h"
#include "AuthorityStore.h"

/// The rights of one user to one account. Each change appends a line that says what was done; nothing is changed that
/// is already so.
class AccountRights {
public:
    AccountRights(Database& database, const QString& user, const QString& account, QStringList& lines);

    Status assign();
    /// `property`: 1 if the instructions are reviewed, otherwise 0.
    Status grant(const QString& type, int property);
    Status revoke(const QStringList& types);
    /// Takes all rights to the account.
    Status unassign();
    /// Assigns the account and makes these types the only ones, each with its property.
    Status set(const QMap<QString, int>& types);

private:
    /// 1 or 0.
    Result<int> isAssigned();
    void note(const QString& change, const QString& type = {});

    AccountStore m_accounts;
    AuthorityStore m_authorities;
    const QString m_user;
    const QString m_account;
    QStringList& m_lines;
};
