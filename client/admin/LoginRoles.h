#pragma once

#include "Database.h"

/// The server's roles by which users log in. A role exists once in a server, for all of its databases.
class LoginRoles {
public:
    struct Role {
        bool exists = false;
        bool canLogin = false;
        bool isUser = false;    ///< a member of the role of all users
        bool hasPowers = false; ///< may change more than a user

        bool isActive() const { return canLogin && isUser; }
    };

    explicit LoginRoles(Database& database);

    /// Fails if an id cannot be the name of a user's role.
    static Status check(const QString& id);
    /// Fails unless the open role may create and change other roles.
    Status checkPermission();
    Result<Role> role(const QString& id);
    /// Creates the role of a user, or lets a present one log in as a user.
    Status enable(const QString& id);
    /// Takes the login and all privileges of a user from the role.
    Status disable(const QString& id);
    Status setPassword(const QString& id, const QString& password);
    /// Ends the connections of a role to all databases of the server; returns how many.
    Result<int> endConnections(const QString& id);

private:
    Status run(const QString& format, const QString& id, const QString& value = {});
    Status note(const QString& id, const QString& event);

    Database& m_database;
};
