#include "UserStore.h"

UserStore::UserStore(Database& database)
    : m_database(database)
{
}

Status UserStore::add(const StoredUser& user)
{
    return m_database.execute(QStringLiteral("INSERT INTO users (id, name) VALUES (?, ?)"), { user.id, user.name });
}

StoredUser UserStore::user(const QString& id)
{
    QSqlQuery query = m_database.query(QStringLiteral("SELECT id, name FROM users WHERE id = ?"), { id });
    return query.next() ? StoredUser{ query.value(0).toString(), query.value(1).toString() } : StoredUser();
}

QVector<StoredUser> UserStore::users()
{
    QSqlQuery query = m_database.query(QStringLiteral("SELECT id, name FROM users ORDER BY id"));
    QVector<StoredUser> users;
    while (query.next())
        users << StoredUser{ query.value(0).toString(), query.value(1).toString() };
    return users;
}
