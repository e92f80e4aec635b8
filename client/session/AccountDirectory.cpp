#include "AccountDirectory.h"

#include "PlanCodes.h"

void AccountDirectory::load(Database& database, const QString& userId)
{
    clear();
    m_accounts = AccountStore(database).accountsOf(userId);
    AuthorityStore authorities(database);
    for (int i = 0; i < m_accounts.size(); ++i) {
        m_positions.insert(m_accounts.at(i).tradingAccount, i);
        loadRights(authorities, userId, m_accounts.at(i).tradingAccount);
    }
}

void AccountDirectory::clear()
{
    m_accounts.clear();
    m_positions.clear();
    m_rights.clear();
    m_chains.clear();
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

QStringList AccountDirectory::executors(const QString& chainKey) const
{
    return m_chains.value(chainKey).executors;
}

QStringList AccountDirectory::forwarders(const QString& chainKey) const
{
    return m_chains.value(chainKey).forwarders;
}

void AccountDirectory::loadRights(AuthorityStore& store, const QString& userId, const QString& tradingAccount)
{
    using namespace PlanCodes;
    const QStringList types{ InstructionType::Ordinary, InstructionType::Credit, InstructionType::Bond,
        InstructionType::HkConnect };
    for (const QString& type : types) {
        const Rights rights{ store.hasAuthority(userId, tradingAccount, type),
            store.ruleProperty(userId, tradingAccount, type), store.chainKey(tradingAccount, type) };
        m_rights.insert({ tradingAccount, type }, rights);
        if (!rights.chainKey.isEmpty())
            m_chains.insert(rights.chainKey,
                { store.chainUsers(rights.chainKey, ChainRole::Execute),
                    store.chainUsers(rights.chainKey, ChainRole::Forward) });
    }
}

AccountDirectory::Rights AccountDirectory::rights(const QString& tradingAccount, const QString& instructionType) const
{
    return m_rights.value({ tradingAccount, instructionType });
}
