#include "LoginRoles.h"

#include "Administration.h"
#include "RolePassword.h"

namespace {

// PostgreSQL cuts longer names off.
constexpr int LongestName = 63; // bytes

} // namespace

LoginRoles::LoginRoles(Database& database)
    : m_database(database)
{
}

Status LoginRoles::check(const QString& id)
{
    const bool isUsable = Administration::checkText({}, id) && id.toUtf8().size() <= LongestName
        && !id.startsWith(QLatin1String("pg_")) && id != QLatin1String("public") && id != QLatin1String("none");
    return isUsable ? Status() : Status(Error::UnusableUserId, { id });
}

Status LoginRoles::checkPermission()
{
    const auto may =
        m_database.value(QStringLiteral("SELECT rolcreaterole OR rolsuper FROM pg_roles WHERE rolname = session_user"));
    if (!may)
        return may.status();
    return may->toBool() ? Status() : Status(Error::MayNotManageRoles, { m_database.role() });
}

Result<LoginRoles::Role> LoginRoles::role(const QString& id)
{
    Role found;
    Status status = m_database.read(
        QStringLiteral("SELECT r.rolcanlogin,"
                       " EXISTS (SELECT FROM pg_auth_members AS m JOIN pg_roles AS g ON g.oid = m.roleid"
                       " WHERE m.member = r.oid AND g.rolname = 'plandesk_user'),"
                       " r.rolsuper OR r.rolcreaterole OR r.rolcreatedb OR r.rolreplication OR r.rolbypassrls"
                       " OR r.rolname = 'plandesk_user' OR EXISTS (SELECT FROM pg_roles AS g"
                       " WHERE (g.rolname LIKE 'pg\\_%' OR g.oid = (SELECT nspowner FROM pg_namespace"
                       " WHERE nspname = 'plandesk')) AND pg_has_role(r.oid, g.oid, 'MEMBER'))"
                       " FROM pg_roles AS r WHERE r.rolname = ?"),
        { id }, [&found](const QSqlQuery& row) {
            found = { true, row.value(0).toBool(), row.value(1).toBool(), row.value(2).toBool() };
        });
    return status ? Result<Role>(found) : status;
}

Status LoginRoles::enable(const QString& id)
{
    const Result<Role> present = role(id);
    if (!present)
        return present.status();
    Status status =
        run(present->exists ? QStringLiteral("ALTER ROLE %I LOGIN") : QStringLiteral("CREATE ROLE %I LOGIN"), id);
    if (status)
        status = run(QStringLiteral("GRANT plandesk_user TO %I"), id);
    return status ? note(id, QStringLiteral("enabled")) : status;
}

Status LoginRoles::disable(const QString& id)
{
    Status status = run(QStringLiteral("ALTER ROLE %I NOLOGIN"), id);
    if (status)
        status = run(QStringLiteral("REVOKE plandesk_user FROM %I"), id);
    return status ? note(id, QStringLiteral("disabled")) : status;
}

Status LoginRoles::setPassword(const QString& id, const QString& password)
{
    const Result<QString> encrypted = RolePassword::encrypted(m_database, id, password);
    if (!encrypted)
        return encrypted.status();
    Status status = run(QStringLiteral("ALTER ROLE %I PASSWORD %L"), id, *encrypted);
    return status ? note(id, QStringLiteral("password set")) : status;
}

Result<int> LoginRoles::endConnections(const QString& id)
{
    const auto ended = m_database.value(
        QStringLiteral("SELECT count(pg_terminate_backend(pid)) FROM pg_stat_activity WHERE usename = ?"), { id });
    return ended ? Result<int>(ended->toInt()) : ended.status();
}

// The server quotes the names and values.
Status LoginRoles::run(const QString& format, const QString& id, const QString& value)
{
    const auto statement = m_database.value(
        QStringLiteral("SELECT format('%1', CAST(? AS text), CAST(? AS text))").arg(format), { id, value });
    return statement ? m_database.configure(statement->toString()) : statement.status();
}

Status LoginRoles::note(const QString& id, const QString& event)
{
    return m_database.execute(QStringLiteral("INSERT INTO rights_history (subject, after) VALUES ('roles',"
                                             " json_build_object('role', CAST(? AS text), 'event', CAST(? AS text)))"),
        { id, event });
}
