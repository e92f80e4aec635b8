#include "UserStore.h"

UserStore::UserStore(Database& database)
    : m_database(database)
{
}

Status UserStore::add(const StoredUser& user)
{
    return m_database.execute(QStringLiteral("INSERT INTO users (id, name) VALUES (?, ?)"), { user.id, user.name });
}

Result<StoredUser> UserStore::user(const QString& id)
{
    const auto found = read(QStringLiteral("WHERE id = ?"), { id });
    return found ? Result<StoredUser>(found->value(0)) : found.status();
}

Result<QVector<StoredUser>> UserStore::users()
{
    return read(QStringLiteral("ORDER BY id"), {});
}

Result<QVector<StoredUser>> UserStore::read(const QString& condition, const QVariantList& values)
{
    QVector<StoredUser> users;
    Status status = m_database.read(
        QStringLiteral("SELECT id, name FROM users ") + condition, values, [&users](const QSqlQuery& row) {
            users << StoredUser{ row.value(0).toString(), row.value(1).toString() };
        });
    return status ? Result<QVector<StoredUser>>(users) : status;
}
