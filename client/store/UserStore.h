#pragma once

#include "Database.h"

#include <QVector>

struct StoredUser {
    /// The login name.
    QString id;
    /// The displayed name; chains use it, too.
    QString name;
};

/// The client's users.
class UserStore {
public:
    explicit UserStore(Database& database);

    Status add(const StoredUser& user);
    Status rename(const StoredUser& user);
    /// Whether plans or approval chains name somebody so: 1 or 0.
    Result<int> isNameUsed(const QString& name);
    /// A default user (empty id) if unknown.
    Result<StoredUser> user(const QString& id);
    /// Ascending by id.
    Result<QVector<StoredUser>> users();

private:
    Result<QVector<StoredUser>> read(const QString& condition, const QVariantList& values);

    Database& m_database;
};
