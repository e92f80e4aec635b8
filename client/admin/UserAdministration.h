#pragma once

#include "Administration.h"
#include "UserStore.h"

/// The password of a new user.
struct NewPassword {
    /// Set for a present user, too.
    QString given;
    /// Generates one if the role is new; its line shows the password.
    bool isGenerated = false;
};

/// Users, their login roles and their rights.
class UserAdministration {
public:
    explicit UserAdministration(Administration& administration);

    /// Adds the user and the role of the same name, or completes what is missing of them. A user who was revoked gets
    /// the login back, without rights.
    Result<QStringList> addUser(const StoredUser& user, const NewPassword& password);
    /// Takes all rights and the login from a user and ends the user's connections. Plans and the history keep the name.
    Result<QStringList> revokeUser(const QString& id);
    /// Assigns the account to the user, who may place instructions of these types from it. `reviewed`: whether they are
    /// reviewed.
    Result<QStringList> grant(const QString& id, const QString& account, const QStringList& types, bool reviewed);
    /// Takes the types from the user; no types: the whole account.
    Result<QStringList> revoke(const QString& id, const QString& account, const QStringList& types);

    /// Adds the user within a transaction, or completes what is missing; in a file without a login role. A user with
    /// another name gets the new one unless the old one is used.
    static Status write(Database& database, const StoredUser& user, const NewPassword& password, QStringList& lines);

private:
    Administration& m_administration;
};
