#include "UserAdministration.h"

#include "AccountRights.h"
#include "LoginRoles.h"

#include <QRandomGenerator>

#include <algorithm>

namespace {

constexpr int PasswordBytes = 18; // 144 bits

QString generatedPassword()
{
    QByteArray bytes;
    while (bytes.size() < PasswordBytes)
        bytes.append(static_cast<char>(QRandomGenerator::system()->bounded(256)));
    return QString::fromLatin1(bytes.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals));
}

Status checkUser(Database& database, const QString& id)
{
    const Result<StoredUser> user = UserStore(database).user(id);
    if (!user)
        return user.status();
    return user->id.isEmpty() ? Status(Error::UnknownUser, { id }) : Status();
}

/// Adds one user with the login role.
class NewUser {
public:
    NewUser(Database& database, const StoredUser& user, QStringList& lines)
        : m_roles(database)
        , m_users(database)
        , m_user(user)
        , m_lines(lines)
    {
    }

    Status add(const NewPassword& password)
    {
        Status status = m_roles.checkPermission();
        if (status)
            status = addRow();
        const Result<LoginRoles::Role> role = m_roles.role(m_user.id);
        if (!status || !role)
            return status ? role.status() : status;
        if (role->hasPowers)
            return { Error::RoleWithPowers, { m_user.id } };
        if (!role->isActive())
            status = enable(role->exists);
        return status ? setPassword(password, !role->exists) : status;
    }

    Status addRow()
    {
        const auto users = m_users.users();
        if (!users)
            return users.status();
        bool isPresent = false;
        for (const StoredUser& known : *users) {
            if (known.id == m_user.id && known.name != m_user.name)
                return { Error::UserHasOtherName, { known.id, known.name } };
            if (known.id != m_user.id && known.name == m_user.name)
                return { Error::NameOfOtherUser, { known.name, known.id } };
            isPresent = isPresent || known.id == m_user.id;
        }
        if (isPresent)
            return {};
        note(Administration::tr("已建立，姓名%1").arg(m_user.name));
        return m_users.add(m_user);
    }

private:
    Status enable(bool isPresent)
    {
        note(isPresent ? Administration::tr("登录角色可以登录") : Administration::tr("登录角色已建立"));
        return m_roles.enable(m_user.id);
    }

    Status setPassword(const NewPassword& password, bool isNew)
    {
        const bool generates = password.isGenerated && isNew;
        if (password.given.isEmpty() && !generates) {
            if (isNew)
                note(Administration::tr("没有设置密码"));
            return {};
        }
        const QString text = generates ? generatedPassword() : password.given;
        note(generates ? Administration::tr("密码为%1").arg(text) : Administration::tr("密码已设置"));
        return m_roles.setPassword(m_user.id, text);
    }

    void note(const QString& change) { m_lines << Administration::tr("用户%1：").arg(m_user.id) + change; }

    LoginRoles m_roles;
    UserStore m_users;
    const StoredUser m_user;
    QStringList& m_lines;
};

Status unassignAll(Database& database, const QString& user, QStringList& lines)
{
    const auto accounts = AccountStore(database).accountsOf(user);
    Status status = accounts.status();
    for (int i = 0; status && i < accounts->size(); ++i)
        status = AccountRights(database, user, accounts->at(i).tradingAccount, lines).unassign();
    return status;
}

Status check(const StoredUser& user)
{
    Status status = LoginRoles::check(user.id);
    return status ? Administration::checkText(QStringLiteral(QT_TRANSLATE_NOOP("Caption", "姓名")), user.name) : status;
}

// Plans and approval chains name users.
Status rename(Database& database, const StoredUser& user, QStringList& lines)
{
    UserStore users(database);
    const auto all = users.users();
    if (!all)
        return all.status();
    const auto known =
        std::find_if(all->cbegin(), all->cend(), [&](const StoredUser& one) { return one.id == user.id; });
    const auto namesake =
        std::find_if(all->cbegin(), all->cend(), [&](const StoredUser& one) { return one.name == user.name; });
    if (known == all->cend() || known->name == user.name || namesake != all->cend())
        return {};
    const Result<int> isUsed = users.isNameUsed(known->name);
    if (!isUsed || *isUsed != 0)
        return isUsed ? Status(Error::UserNameInUse, { user.id }) : isUsed.status();
    lines << Administration::tr("用户%1：姓名由%2改为%3").arg(user.id, known->name, user.name);
    return users.rename(user);
}

Status disable(Database& database, const QString& user, QStringList& lines)
{
    LoginRoles roles(database);
    if (Status status = roles.checkPermission(); !status)
        return status;
    const Result<LoginRoles::Role> role = roles.role(user);
    if (!role)
        return role.status();
    if (role->hasPowers)
        return { Error::RoleWithPowers, { user } };
    if (!role->canLogin && !role->isUser)
        return {};
    lines << Administration::tr("用户%1：登录角色已停用").arg(user);
    return roles.disable(user);
}

} // namespace

UserAdministration::UserAdministration(Administration& administration)
    : m_administration(administration)
{
}

Result<QStringList> UserAdministration::addUser(const StoredUser& user, const NewPassword& password)
{
    return m_administration.run([&](Database& database, QStringList& lines) {
        const Status status = check(user);
        return status ? NewUser(database, user, lines).add(password) : status;
    });
}

Status UserAdministration::write(
    Database& database, const StoredUser& user, const NewPassword& password, QStringList& lines)
{
    Status status = check(user);
    if (status)
        status = rename(database, user, lines);
    if (!status)
        return status;
    NewUser added(database, user, lines);
    return database.role().isEmpty() ? added.addRow() : added.add(password);
}

// The privileges are gone with the transaction. What is left is to free what open connections hold.
Result<QStringList> UserAdministration::revokeUser(const QString& id)
{
    Result<QStringList> lines = m_administration.run([&](Database& database, QStringList& changes) -> Status {
        if (Status status = checkUser(database, id); !status)
            return status;
        Status status = unassignAll(database, id, changes);
        return status ? disable(database, id, changes) : status;
    });
    if (!lines || lines->isEmpty())
        return lines;
    const Result<int> ended = LoginRoles(m_administration.database()).endConnections(id);
    if (!ended)
        *lines << Administration::tr("用户%1：没有权限结束其连接（须属于pg_signal_backend），连接已无权读写").arg(id);
    else if (*ended > 0)
        *lines << Administration::tr("用户%1：已结束%2个连接").arg(id, QString::number(*ended));
    return lines;
}

Result<QStringList> UserAdministration::grant(
    const QString& id, const QString& account, const QStringList& types, bool reviewed)
{
    if (Status status = Administration::checkTypes(types); !status)
        return status;
    return m_administration.run([&](Database& database, QStringList& lines) -> Status {
        if (Status status = checkUser(database, id); !status)
            return status;
        AccountRights rights(database, id, account, lines);
        Status status = Administration::checkAccount(database, account);
        if (status)
            status = rights.assign();
        for (const QString& type : types) {
            if (status)
                status = rights.grant(type, reviewed ? 1 : 0);
        }
        return status;
    });
}

Result<QStringList> UserAdministration::revoke(const QString& id, const QString& account, const QStringList& types)
{
    if (Status status = Administration::checkTypes(types); !status)
        return status;
    return m_administration.run([&](Database& database, QStringList& lines) -> Status {
        if (Status status = checkUser(database, id); !status)
            return status;
        AccountRights rights(database, id, account, lines);
        if (Status status = Administration::checkAccount(database, account); !status)
            return status;
        return types.isEmpty() ? rights.unassign() : rights.revoke(types);
    });
}
