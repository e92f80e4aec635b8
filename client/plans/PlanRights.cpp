#include "PlanRights.h"

#include "AutoPlanField.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"

namespace BaseField = AutoPlanField::BaseField;
using namespace PlanCodes;

namespace {

// The rule property of a user whose instructions are reviewed.
constexpr int Review = 1;

QString accountOf(const PlanStore::Record& record)
{
    return record.value(Kelvo_Fields::UserAccount::tradingAccount).toString();
}

QString typeOf(const PlanStore::Record& record)
{
    return record.value(Orlo_Fields::AutoPlan::subType).toString();
}

} // namespace

Status PlanRights::tradeError(const PlanStore::Record& record) const
{
    const QString name = accountOf(record);
    const QString type = typeOf(record);
    if (name.isEmpty())
        return Error::NoAccount;
    if (account.tradingAccount.isEmpty())
        return { Error::UnknownAccount, { name } };
    if (!instruction.authority)
        return { Error::NoAuthority, { name } };
    const bool isCredit = account.assetProperty == Orlo_Values::FundAccountType::Credit;
    if (isCredit != (type == InstructionType::Credit))
        return { Error::TypeNotOfAccount, { name, type } };
    const bool sells = record.value(BaseField::orderSide).toString() == Kelvo_Values::OrderSide::sell;
    return sells || type != InstructionType::HkConnect ? Status() : Status(Error::SideNotOfType, { type });
}

Status PlanRights::reviewError(const PlanStore::Record& record) const
{
    const bool isActive = record.value(BaseField::InstMode).toString() == InstMode::ActiveManage;
    return isActive && instruction.ruleProperty == Review ? Status(Error::ReviewRequired, { accountOf(record) })
                                                          : Status();
}

Status PlanRights::handlerError(const PlanStore::Record& record) const
{
    const QString executor = record.value(BaseField::executeUser).toString();
    if (!executor.isEmpty() && !executors.contains(executor))
        return { Error::UnknownExecutor, { executor } };
    const QString assignee = record.value(BaseField::expectedUser).toString();
    if (!assignee.isEmpty() && !forwarders.contains(assignee))
        return { Error::UnknownAssignee, { assignee } };
    return {};
}

PlanRightsReader::PlanRightsReader(Database& database, const QDate& day)
    : m_database(database)
    , m_day(day)
{
}

Result<PlanRights> PlanRightsReader::read(const QString& userId, const PlanStore::Record& record)
{
    const QStringList key{ userId, accountOf(record), typeOf(record) };
    const auto known = m_known.constFind(key);
    if (known != m_known.cend())
        return *known;
    const Result<PlanRights> rights = readStored(userId, key.at(1), key.at(2));
    if (rights)
        m_known.insert(key, *rights);
    return rights;
}

Result<PlanRights> PlanRightsReader::readStored(const QString& userId, const QString& account, const QString& type)
{
    const Result<StoredAccount> owned = AccountStore(m_database).accountOf(userId, account);
    if (!owned)
        return owned.status();
    AuthorityStore authorities(m_database);
    const Result<Rights> instruction = authorities.rights(userId, account, type);
    if (!instruction)
        return instruction.status();
    const Result<QStringList> executors = authorities.chainUsers(instruction->chainKey, ChainRole::Execute);
    if (!executors)
        return executors.status();
    const Result<QStringList> forwarders = authorities.chainUsers(instruction->chainKey, ChainRole::Forward);
    if (!forwarders)
        return forwarders.status();
    const Result<AccountLimits> limits = LimitStore(m_database).limits(account, userId, m_day);
    if (!limits)
        return limits.status();
    return PlanRights{ *owned, *instruction, *executors, *forwarders, *limits };
}
