#include "AccountDirectory.h"

#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"

#include <algorithm>

Status AccountDirectory::load(Database& database, const QString& userId)
{
    clear();
    Status status = read(database, userId);
    if (!status)
        clear();
    return status;
}

Status AccountDirectory::read(Database& database, const QString& userId)
{
    const auto accounts = AccountStore(database).accountsOf(userId);
    if (!accounts)
        return accounts.status();
    m_accounts = *accounts;
    AuthorityStore authorities(database);
    for (int i = 0; i < m_accounts.size(); ++i) {
        m_positions.insert(m_accounts.at(i).tradingAccount, i);
        if (Status status = readRights(authorities, userId, m_accounts.at(i).tradingAccount); !status)
            return status;
    }
    return {};
}

void AccountDirectory::clear()
{
    m_accounts.clear();
    m_positions.clear();
    m_rights.clear();
    m_chains.clear();
}

// The positions follow from the accounts.
bool AccountDirectory::operator==(const AccountDirectory& other) const
{
    return m_accounts == other.m_accounts && m_rights == other.m_rights && m_chains == other.m_chains;
}

const StoredAccount* AccountDirectory::find(const QString& tradingAccount) const
{
    const auto found = m_positions.constFind(tradingAccount);
    return found == m_positions.cend() ? nullptr : &m_accounts.at(*found);
}

QStringList AccountDirectory::clientNumbers() const
{
    QStringList numbers;
    for (const StoredAccount& account : m_accounts)
        numbers << account.clientNo;
    numbers.removeDuplicates();
    return numbers;
}

bool AccountDirectory::hasAuthority(const QString& tradingAccount, const QString& instructionType) const
{
    return rights(tradingAccount, instructionType).authority;
}

int AccountDirectory::ruleProperty(const QString& tradingAccount, const QString& instructionType) const
{
    return rights(tradingAccount, instructionType).ruleProperty;
}

QString AccountDirectory::chainKey(const QString& tradingAccount, const QString& instructionType) const
{
    return rights(tradingAccount, instructionType).chainKey;
}

Status AccountDirectory::newPlanError(const QString& userId) const
{
    if (m_accounts.isEmpty())
        return { Error::UserWithoutAccount, { userId } };
    const bool isAny = std::any_of(
        m_accounts.cbegin(), m_accounts.cend(), [this](const StoredAccount& account) { return mayTrade(account); });
    return isAny ? Status() : Status(Error::UserWithoutRight, { userId });
}

// The rules of the form: an account that fits none of them is not offered, or is offered without an instruction type.
bool AccountDirectory::mayTrade(const StoredAccount& account) const
{
    using namespace PlanCodes;
    using namespace Kelvo_Values::Exchange;
    using namespace Orlo_Values::Exchange;
    const auto has = [this, &account](const QString& type, const QStringList& exchanges) {
        return hasAuthority(account.tradingAccount, type)
            && std::any_of(exchanges.cbegin(), exchanges.cend(),
                [&account](const QString& exchange) { return account.exchangeAccounts.contains(exchange); });
    };
    if (account.assetProperty == Orlo_Values::FundAccountType::Credit)
        return has(InstructionType::Credit, { sh, sz });
    return has(InstructionType::Ordinary, { sh, sz, bj }) || has(InstructionType::Bond, { sh, sz })
        || has(InstructionType::HkConnect, { HkStockCirculation });
}

QStringList AccountDirectory::executors(const QString& chainKey) const
{
    return m_chains.value(chainKey).executors;
}

QStringList AccountDirectory::forwarders(const QString& chainKey) const
{
    return m_chains.value(chainKey).forwarders;
}

Status AccountDirectory::readRights(AuthorityStore& store, const QString& userId, const QString& tradingAccount)
{
    using namespace PlanCodes;
    const QStringList types{ InstructionType::Ordinary, InstructionType::Credit, InstructionType::Bond,
        InstructionType::HkConnect };
    for (const QString& type : types) {
        const Result<Rights> rights = store.rights(userId, tradingAccount, type);
        if (!rights)
            return rights.status();
        m_rights.insert({ tradingAccount, type }, *rights);
        if (Status status = readChain(store, rights->chainKey); !status)
            return status;
    }
    return {};
}

Status AccountDirectory::readChain(AuthorityStore& store, const QString& chainKey)
{
    if (chainKey.isEmpty())
        return {};
    const Result<QStringList> executors = store.chainUsers(chainKey, ChainRole::Execute);
    if (!executors)
        return executors.status();
    const Result<QStringList> forwarders = store.chainUsers(chainKey, ChainRole::Forward);
    if (!forwarders)
        return forwarders.status();
    m_chains.insert(chainKey, { *executors, *forwarders });
    return {};
}

Rights AccountDirectory::rights(const QString& tradingAccount, const QString& instructionType) const
{
    return m_rights.value({ tradingAccount, instructionType });
}
