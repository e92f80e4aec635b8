#include "PlanRights.h"

#include "AutoPlanField.h"
#include "CodeWords.h"
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

OrderParties partiesOf(const QString& userId, const PlanStore::Record& record)
{
    return { userId, accountOf(record), record.value(Kelvo_Fields::UserAccount::securityExchange).toString(),
        typeOf(record), record.value(BaseField::executeUser).toString(),
        record.value(BaseField::expectedUser).toString() };
}

} // namespace

Status PlanRights::tradeError(const PlanStore::Record& record) const
{
    const QString name = accountOf(record);
    const QString type = typeOf(record);
    if (name.isEmpty())
        return Error::NoAccount;
    if (!order.isOwn)
        return { Error::UnknownAccount, { name } };
    if (!order.authority)
        return { Error::NoAuthority, { name } };
    const bool isCredit = order.assetProperty == Orlo_Values::FundAccountType::Credit;
    if (isCredit != (type == InstructionType::Credit))
        return { Error::TypeNotOfAccount, { name, CodeWords::instructionTypes().word(type) } };
    const bool sells = record.value(BaseField::orderSide).toString() == Kelvo_Values::OrderSide::sell;
    return sells || type != InstructionType::HkConnect
        ? Status()
        : Status(Error::SideNotOfType, { CodeWords::instructionTypes().word(type) });
}

Status PlanRights::reviewError(const PlanStore::Record& record) const
{
    const bool isActive = record.value(BaseField::InstMode).toString() == InstMode::ActiveManage;
    return isActive && order.ruleProperty == Review ? Status(Error::ReviewRequired, { accountOf(record) }) : Status();
}

Status PlanRights::handlerError(const PlanStore::Record& record) const
{
    const QString executor = record.value(BaseField::executeUser).toString();
    if (!executor.isEmpty() && !order.knowsExecutor)
        return { Error::UnknownExecutor, { executor } };
    const QString assignee = record.value(BaseField::expectedUser).toString();
    if (!assignee.isEmpty() && !order.knowsAssignee)
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
    const OrderParties parties = partiesOf(userId, record);
    const QStringList key{ parties.user, parties.tradingAccount, parties.exchange, parties.instructionType,
        parties.executor, parties.assignee };
    const auto known = m_known.constFind(key);
    if (known != m_known.cend())
        return *known;
    PlanRights rights;
    ValueReader reader(m_database);
    addTo(reader, userId, record, m_day, rights);
    if (Status status = reader.read(); !status)
        return status;
    m_known.insert(key, rights);
    return rights;
}

Result<PlanRights> PlanRightsReader::ofHandler(const QString& userId, const StoredPlan& plan)
{
    const Result<PlanRights> own = read(userId, plan.record);
    return own && !own->order.isOwn ? read(plan.creator, plan.record) : own;
}

void PlanRightsReader::addTo(
    ValueReader& reader, const QString& userId, const PlanStore::Record& record, const QDate& day, PlanRights& rights)
{
    AuthorityStore::addTo(reader, partiesOf(userId, record), rights.order);
    LimitStore::addTo(reader, accountOf(record), userId, day, rights.limits);
}
