#pragma once

#include "Database.h"

#include <QVector>

struct StoredUser {
    /// What the user logs in with.
    QString id;
    /// As displayed; also how chains name users.
    QString name;
};

/// The client's users.
class UserStore {
public:
    explicit UserStore(Database& database);

    Status add(const StoredUser& user);
    /// A default user (empty id) when unknown.
    StoredUser user(const QString& id);
    /// Ascending by id.
    QVector<StoredUser> users();

private:
    Database& m_database;
};
