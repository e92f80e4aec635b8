#include "PlanIntake.h"

#include "ClientClock.h"
#include "Kelvo_Fields.h"
#include "PlanFacts.h"
#include "PlanLife.h"

PlanIntake::PlanIntake(Database& database, const IssueScene& scene)
    : m_database(database)
    , m_scene(scene)
    , m_plans(database, scene.user)
    , m_rights(database, scene.day)
{
}

Status PlanIntake::checkNew(const PlanStore::Record& record, Status& refused)
{
    const Result<PlanCheck::Known> facts = known(record);
    refused = facts ? PlanCheck::creationError(record, *facts) : Status();
    return facts.status();
}

Status PlanIntake::checkChange(const StoredPlan& plan, const PlanStore::Record& record, Status& refused)
{
    refused = PlanLife::changeError(plan);
    if (!refused)
        return {};
    const Result<PlanCheck::Known> facts = known(record);
    const auto used = InstructionStore(m_database).used({ plan.id }, m_scene.day);
    if (!facts || !used)
        return facts ? used.status() : facts.status();
    refused = PlanCheck::changeError(plan.record, record, PlanFacts::used(plan, used->value(plan.id)), *facts);
    return {};
}

Result<QString> PlanIntake::create(const PlanStore::Record& record, const QString& request)
{
    return m_plans.create(record, changeNow(request));
}

Status PlanIntake::change(const StoredPlan& plan, const PlanStore::Record& record, const QString& request)
{
    return m_plans.replace(plan, record, changeNow(request));
}

Result<PlanCheck::Known> PlanIntake::known(const PlanStore::Record& record)
{
    const Result<PlanRights> rights = m_rights.read(m_scene.user.id, record);
    if (!rights)
        return rights.status();
    PlanCheck::Known facts{ m_scene.market, m_scene.calendar, m_scene.day, m_scene.user.id, *rights, {}, 0 };
    const Security* const security = m_scene.market.find(record.value(Kelvo_Fields::Security::symbol).toString());
    if (!security)
        return facts;
    const Result<QVector<qint64>> ticks = closes(*security);
    const Result<double> quantity = sellable(record, *security);
    if (!ticks || !quantity)
        return ticks ? quantity.status() : ticks.status();
    facts.closes = *ticks;
    facts.sellable = *quantity;
    return facts;
}

Result<QVector<qint64>> PlanIntake::closes(const Security& security)
{
    const auto read = m_closes.constFind(security.symbol);
    if (read != m_closes.cend())
        return *read;
    const Result<CloseHistory> history = SecurityStore(m_database).closes(security.symbol);
    if (!history)
        return history.status();
    const QVector<qint64> ticks = PlanFacts::closesBefore(*history, m_scene.calendar, security, m_scene.day);
    m_closes.insert(security.symbol, ticks);
    return ticks;
}

Result<double> PlanIntake::sellable(const PlanStore::Record& record, const Security& security)
{
    const QStringList key{ record.value(Kelvo_Fields::UserAccount::tradingAccount).toString(),
        record.value(Kelvo_Fields::UserAccount::securityAccount).toString(), security.symbol };
    const auto read = m_sellable.constFind(key);
    if (read != m_sellable.cend())
        return *read;
    const Result<double> quantity = PlanFacts::sellable(m_database, record, security, m_scene.day);
    if (quantity)
        m_sellable.insert(key, *quantity);
    return quantity;
}

Change PlanIntake::changeNow(const QString& request) const
{
    return { m_scene.user.id, clientNow(), request };
}
