#include "UserAdministration.h"

#include "AccountStore.h"
#include "AuthorityStore.h"
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

/// The rights of one user to one account.
class AccountRights {
public:
    AccountRights(Database& database, const QString& user, const QString& account, QStringList& lines)
        : m_accounts(database)
        , m_authorities(database)
        , m_user(user)
        , m_account(account)
        , m_lines(lines)
    {
    }

    Status assign()
    {
        const Result<int> assigned = isAssigned();
        if (!assigned || *assigned != 0)
            return assigned.status();
        note(QStringLiteral("分配账户%1"));
        return m_accounts.assign(m_user, m_account);
    }

    Status grant(const QString& type, int property)
    {
        const Result<Rights> present = m_authorities.rights(m_user, m_account, type);
        if (!present)
            return present.status();
        Status status;
        if (!present->authority) {
            note(QStringLiteral("账户%1增加指令类型%2"), type);
            status = m_authorities.grant(m_user, m_account, type);
        }
        if (!status || present->ruleProperty == property)
            return status;
        note(property == 0 ? QStringLiteral("账户%1指令类型%2不须复核") : QStringLiteral("账户%1指令类型%2须复核"),
            type);
        return m_authorities.setRuleProperty(m_user, m_account, type, property);
    }

    Status revoke(const QStringList& types)
    {
        const Result<QStringList> present = m_authorities.types(m_user, m_account);
        Status status = present.status();
        for (const QString& type : types) {
            if (!status || !present->contains(type))
                continue;
            note(QStringLiteral("账户%1收回指令类型%2"), type);
            status = m_authorities.revoke(m_user, m_account, type);
        }
        return status;
    }

    Status unassign()
    {
        const Result<QStringList> types = m_authorities.types(m_user, m_account);
        Status status = types ? revoke(*types) : types.status();
        const Result<int> assigned = isAssigned();
        if (!status || !assigned || *assigned == 0)
            return status ? assigned.status() : status;
        note(QStringLiteral("收回账户%1"));
        return m_accounts.unassign(m_user, m_account);
    }

private:
    /// 1 or 0.
    Result<int> isAssigned()
    {
        const auto accounts = m_accounts.accountsOf(m_user);
        if (!accounts)
            return accounts.status();
        return std::any_of(accounts->cbegin(), accounts->cend(),
                   [this](const StoredAccount& account) { return account.tradingAccount == m_account; })
            ? 1
            : 0;
    }

    void note(const QString& change, const QString& type = {})
    {
        const QString line = QStringLiteral("用户") + m_user + QStringLiteral("：");
        m_lines << line + (type.isEmpty() ? change.arg(m_account) : change.arg(m_account, type));
    }

    AccountStore m_accounts;
    AuthorityStore m_authorities;
    const QString m_user;
    const QString m_account;
    QStringList& m_lines;
};

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

private:
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
        note(QStringLiteral("已建立，姓名%1").arg(m_user.name));
        return m_users.add(m_user);
    }

    Status enable(bool isPresent)
    {
        note(isPresent ? QStringLiteral("登录角色可以登录") : QStringLiteral("登录角色已建立"));
        return m_roles.enable(m_user.id);
    }

    Status setPassword(const NewPassword& password, bool isNew)
    {
        const bool generates = password.isGenerated && isNew;
        if (password.given.isEmpty() && !generates) {
            if (isNew)
                note(QStringLiteral("没有设置密码"));
            return {};
        }
        const QString text = generates ? generatedPassword() : password.given;
        note(generates ? QStringLiteral("密码为%1").arg(text) : QStringLiteral("密码已设置"));
        return m_roles.setPassword(m_user.id, text);
    }

    void note(const QString& change) { m_lines << QStringLiteral("用户%1：").arg(m_user.id) + change; }

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
    lines << QStringLiteral("用户%1：登录角色已停用").arg(user);
    return roles.disable(user);
}

} // namespace

UserAdministration::UserAdministration(Administration& administration)
    : m_administration(administration)
{
}

Result<QStringList> UserAdministration::addUser(const StoredUser& user, const NewPassword& password)
{
    if (Status status = LoginRoles::check(user.id); !status)
        return status;
    if (Status status = Administration::checkText(QStringLiteral("姓名"), user.name); !status)
        return status;
    return m_administration.run(
        [&](Database& database, QStringList& lines) { return NewUser(database, user, lines).add(password); });
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
        *lines << QStringLiteral("用户%1：没有权限结束其连接（须属于pg_signal_backend），连接已无权读写").arg(id);
    else if (*ended > 0)
        *lines << QStringLiteral("用户%1：已结束%2个连接").arg(id, QString::number(*ended));
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
