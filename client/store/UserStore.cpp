#include "UserStore.h"

UserStore::UserStore(Database& database)
    : m_database(database)
{
}

Status UserStore::add(const StoredUser& user)
{
    return m_database.execute(QStringLiteral("INSERT INTO users (id, name) VALUES (?, ?)"), { user.id, user.name });
}

Status UserStore::rename(const StoredUser& user)
{
    return m_database.execute(QStringLiteral("UPDATE users SET name = ? WHERE id = ?"), { user.name, user.id });
}

Result<int> UserStore::isNameUsed(const QString& name)
{
    const auto used =
        m_database.value(QStringLiteral("SELECT CASE WHEN EXISTS (SELECT 1 FROM plans WHERE assignee = ?)"
                                        " OR EXISTS (SELECT 1 FROM plans WHERE executor = ?)"
                                        " OR EXISTS (SELECT 1 FROM chain_users WHERE user_name = ?) THEN 1 ELSE 0 END"),
            { name, name, name });
    return used ? Result<int>(used->toInt()) : used.status();
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
