#include "AccountRights.h"

#include "Administration.h"
#include "CodeWords.h"
#include "ErrorText.h"

#include <algorithm>

AccountRights::AccountRights(Database& database, const QString& user, const QString& account, QStringList& lines)
    : m_accounts(database)
    , m_authorities(database)
    , m_user(user)
    , m_account(account)
    , m_lines(lines)
{
}

Status AccountRights::assign()
{
    const Result<int> assigned = isAssigned();
    if (!assigned || *assigned != 0)
        return assigned.status();
    note(Administration::tr("分配账户%1"));
    return m_accounts.assign(m_user, m_account);
}

Status AccountRights::grant(const QString& type, int property)
{
    const Result<Rights> present = m_authorities.rights(m_user, m_account, type);
    if (!present)
        return present.status();
    Status status;
    if (!present->authority) {
        note(Administration::tr("账户%1增加指令类型%2"), type);
        status = m_authorities.grant(m_user, m_account, type);
    }
    if (!status || present->ruleProperty == property)
        return status;
    note(property == 0 ? Administration::tr("账户%1指令类型%2不须复核") : Administration::tr("账户%1指令类型%2须复核"),
        type);
    return m_authorities.setRuleProperty(m_user, m_account, type, property);
}

Status AccountRights::revoke(const QStringList& types)
{
    const Result<QStringList> present = m_authorities.types(m_user, m_account);
    Status status = present.status();
    for (const QString& type : types) {
        if (!status || !present->contains(type))
            continue;
        note(Administration::tr("账户%1收回指令类型%2"), type);
        status = m_authorities.revoke(m_user, m_account, type);
    }
    return status;
}

Status AccountRights::unassign()
{
    const Result<QStringList> types = m_authorities.types(m_user, m_account);
    Status status = types ? revoke(*types) : types.status();
    const Result<int> assigned = isAssigned();
    if (!status || !assigned || *assigned == 0)
        return status ? assigned.status() : status;
    note(Administration::tr("收回账户%1"));
    return m_accounts.unassign(m_user, m_account);
}

Result<int> AccountRights::isAssigned()
{
    const auto accounts = m_accounts.accountsOf(m_user);
    if (!accounts)
        return accounts.status();
    return std::any_of(accounts->cbegin(), accounts->cend(),
               [this](const StoredAccount& account) { return account.tradingAccount == m_account; })
        ? 1
        : 0;
}

void AccountRights::note(const QString& change, const QString& type)
{
    const QString line = Administration::tr("用户%1：").arg(m_user);
    const QString word = captionText(CodeWords::instructionTypes().word(type));
    m_lines << line + (type.isEmpty() ? change.arg(m_account) : change.arg(m_account, word));
}

Status AccountRights::set(const QMap<QString, int>& types)
{
    Status status = assign();
    for (auto type = types.cbegin(); type != types.cend() && status; ++type)
        status = grant(type.key(), type.value());
    const Result<QStringList> present = m_authorities.types(m_user, m_account);
    if (!status || !present)
        return status ? present.status() : status;
    QStringList others;
    for (const QString& type : *present) {
        if (!types.contains(type))
            others << type;
    }
    return revoke(others);
}
