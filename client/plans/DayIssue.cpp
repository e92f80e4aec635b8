#include "DayIssue.h"

#include "AutoPlanField.h"
#include "ClientClock.h"
#include "DayFacts.h"
#include "ErrorText.h"
#include "InstructionStore.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "MissedDays.h"
#include "Orlo_Fields.h"
#include "PlanCodes.h"
#include "Rulebook.h"
#include "TickPrice.h"
#include "TradeHours.h"

#include <QDebug>

namespace BaseField = AutoPlanField::BaseField;
using namespace PlanCodes;

namespace {

constexpr int YuanDecimals = 2;
constexpr int PlansPerTransaction = 500;

using Fields = InstructionStore::Fields;

QString amountText(double yuan)
{
    return QString::number(yuan, 'f', YuanDecimals);
}

/// One plan on one day.
class PlanDay {
public:
    PlanDay(
        const IssueScene& scene, const StoredPlan& plan, const PlanUse& use, const PlanRights& rights, DayFacts& facts)
        : m_scene(scene)
        , m_plan(plan)
        , m_use(use)
        , m_rights(rights)
        , m_facts(facts)
        , m_security(securityOfDay())
    {
    }

    /// Whether the user may change instructions of the plan at all.
    bool mayTrade() const { return bool(m_rights.tradeError(m_plan.record)); }
    /// Fails if the plan gets no instruction; on success the others may be called.
    Status prepare();
    /// Takes what the order needs from what later plans have.
    void take() { m_facts.take(m_plan.record, m_terms, m_order); }
    Fields fields() const;
    /// Whether nothing is left once the order is filled as simulated.
    bool completes() const;

    const DayOrder& order() const { return m_order; }
    const std::optional<double>& cash() const { return m_cash; }
    int precision() const { return m_security ? m_security->pricePrecision : 0; }

private:
    QString text(const QString& key) const { return m_plan.record.value(key).toString(); }

    std::optional<Security> securityOfDay() const
    {
        const Security* const known = m_scene.market.find(text(Kelvo_Fields::Security::symbol));
        return known ? std::optional<Security>(Rulebook::present().onDay(*known, m_scene.day)) : std::nullopt;
    }

    Status checkRights() const;
    Status checkDay() const;
    Status readTerms();

    const IssueScene& m_scene;
    const StoredPlan& m_plan;
    const PlanUse m_use;
    const PlanRights m_rights;
    DayFacts& m_facts;
    const std::optional<Security> m_security; ///< by the rules of the day
    OrderTerms m_terms;
    DayOrder m_order;
    std::optional<double> m_cash; ///< of the account, before the order
};

Status PlanDay::prepare()
{
    if (Status refused = checkRights(); !refused)
        return refused;
    if (!m_security)
        return { Error::UnknownSecurity, { text(Kelvo_Fields::Security::symbol) } };
    if (Status status = checkDay(); !status)
        return status;
    if (Status status = readTerms(); !status)
        return status;
    const auto closes = m_facts.closes(*m_security);
    if (!closes)
        return closes.status();
    const Result<DayPrice> price = dayPrice(m_plan.record, *m_security, *closes);
    if (!price)
        return price.status();
    const Result<DayOrder> order = dayOrder(m_terms, *price, *m_security, m_rights.limits);
    if (!order)
        return order.status();
    m_order = *order;
    return {};
}

Fields PlanDay::fields() const
{
    if (m_order.price.cutToLimit)
        qInfo() << "DayIssue::issue" << m_plan.id << "price cut to the day's limit price";
    const qint64 filled = m_order.fill.quantity;
    Fields fields{
        { FieldId::EndState, filled == m_order.quantity ? EndState::Ended : EndState::Running },
        { FieldId::TargetType,
            m_terms.isAmount ? InstructionTargetType::AmountOrder : InstructionTargetType::QtyOrder },
        { FieldId::Price, TickPrice::text(m_order.price.limit.value_or(0), m_security->pricePrecision) },
        { FieldId::IssuedQty, QString::number(m_order.quantity) },
        { FieldId::FilledQty, QString::number(filled) },
        { FieldId::IssuedAmount, amountText(m_order.issuedYuan) },
        { Orlo_Fields::Security::cumAmount, amountText(m_order.filledYuan) },
    };
    if (!m_terms.marginSide.isEmpty())
        fields.insert(FieldId::MarginSide, m_terms.marginSide);
    return fields;
}

bool PlanDay::completes() const
{
    OrderTerms later = m_terms;
    later.share.used += m_terms.isAmount ? m_order.filledYuan : static_cast<double>(m_order.fill.quantity);
    return m_order.fill.quantity == m_order.quantity && isUsedUp(later, m_order.price, *m_security);
}

Status PlanDay::checkRights() const
{
    if (Status refused = m_rights.tradeError(m_plan.record); !refused)
        return refused;
    if (Status refused = m_rights.reviewError(m_plan.record); !refused)
        return refused;
    return m_rights.handlerError(m_plan.record);
}

Status PlanDay::checkDay() const
{
    if (const QDate today = marketDay(m_scene.now); m_scene.now.isValid() && today != m_scene.day)
        return { Error::NotToday, { m_scene.day.toString(Qt::ISODate), today.toString(Qt::ISODate) } };
    switch (m_scene.calendar.day(m_security->exchange, m_scene.day)) {
    case TradeCalendar::Day::Trades:
        return m_scene.now.isValid() ? TradeHours::check(m_security->exchange, m_scene.now.time()) : Status();
    case TradeCalendar::Day::Closed:
        return { Error::NotATradeDay, { QString(), m_scene.day.toString(Qt::ISODate) } };
    case TradeCalendar::Day::Unknown:
        break;
    }
    return { Error::NotInCalendar, { QString(), m_scene.day.toString(Qt::ISODate) } };
}

Status PlanDay::readTerms()
{
    const auto sellable = [this] { return m_facts.sellable(m_plan.record, *m_security); };
    const Result<OrderTerms> terms = orderTerms(m_plan.record, *m_security, m_use, sellable);
    if (!terms)
        return terms.status();
    m_terms = *terms;
    m_terms.share.daysLeft = m_facts.daysUntil(m_security->exchange, text(BaseField::endDate));
    // Known also where nothing is bought: what a sale earns is added to it.
    const auto cash = m_facts.cash(m_plan.record);
    if (!cash)
        return cash.status();
    m_cash = *cash;
    if (m_cash && m_terms.needsCash())
        m_terms.cash = *m_cash;
    return {};
}

/// The plans of one transaction, or of one part of a preview.
class SomePlans {
public:
    SomePlans(Database& database, const IssueScene& scene, DayFacts& facts)
        : m_scene(scene)
        , m_facts(facts)
        , m_plans(database, scene.user)
        , m_instructions(database)
    {
    }

    Status preview(const QStringList& ids, const QSet<QString>& leftOut, QVector<IssueRow>& rows);
    /// `confirmed`: null if whatever is due goes out.
    Status issue(const QStringList& ids, const QHash<QString, ConfirmedOrder>* confirmed, IssueResult& result);

private:
    Status read(const QStringList& ids);
    Result<PlanDay> dayOf(const StoredPlan& plan, const PlanUse& use);
    Status issue(const StoredPlan& plan, const PlanUse& use, const ConfirmedOrder* confirmed, IssueResult& result);
    static void noteOthers(const QStringList& ids, const DayPlans& day, IssueResult& result);
    Status refuse(const StoredPlan& plan, const Status& reason);
    Change change() const { return { m_scene.user.id, clientNow() }; }

    const IssueScene& m_scene;
    DayFacts& m_facts;
    PlanStore m_plans;
    InstructionStore m_instructions;
    QVector<StoredPlan> m_read;
    QHash<QString, PlanUse> m_uses;
};

Status SomePlans::read(const QStringList& ids)
{
    const auto plans = m_plans.plans(ids);
    if (!plans)
        return plans.status();
    m_read = *plans;
    const auto uses = m_instructions.used(ids, m_scene.day);
    if (!uses)
        return uses.status();
    m_uses = *uses;
    return {};
}

Result<PlanDay> SomePlans::dayOf(const StoredPlan& plan, const PlanUse& use)
{
    const Result<PlanRights> rights = m_facts.rights(plan);
    return rights ? Result<PlanDay>(PlanDay(m_scene, plan, use, *rights, m_facts)) : rights.status();
}

Status SomePlans::preview(const QStringList& ids, const QSet<QString>& leftOut, QVector<IssueRow>& rows)
{
    if (Status status = read(ids); !status)
        return status;
    const auto progress = m_instructions.progress(ids);
    if (!progress)
        return progress.status();
    for (const StoredPlan& plan : qAsConst(m_read)) {
        Result<PlanDay> day = dayOf(plan, m_uses.value(plan.id));
        if (!day)
            return day.status();
        IssueRow row{ plan, day->prepare(), {}, day->precision() };
        row.order = day->order();
        if (row.reason && !leftOut.contains(plan.id))
            day->take();
        row.cash = day->cash();
        row.missed = MissedDays::last(plan, progress->value(plan.id).lastDay, m_scene.calendar, m_scene.day);
        rows << row;
    }
    return {};
}

// Plans that someone else has issued or changed meanwhile are no longer due.
Status SomePlans::issue(const QStringList& ids, const QHash<QString, ConfirmedOrder>* confirmed, IssueResult& result)
{
    if (Status status = m_instructions.waitForIssue(); !status)
        return status;
    const Result<DayPlans> day = m_plans.plansOfDay(m_scene.day, ids);
    if (!day)
        return day.status();
    result.alreadyIssued += day->issued;
    if (Status status = read(day->due); !status)
        return status;
    for (const StoredPlan& plan : qAsConst(m_read)) {
        const ConfirmedOrder* const order = confirmed ? &*confirmed->constFind(plan.id) : nullptr;
        if (Status status = issue(plan, m_uses.value(plan.id), order, result); !status)
            return status;
    }
    if (confirmed)
        noteOthers(ids, *day, result);
    return {};
}

/// Those that are not of the day any more.
void SomePlans::noteOthers(const QStringList& ids, const DayPlans& day, IssueResult& result)
{
    const QStringList found = day.due + day.issued;
    const QSet<QString> known(found.cbegin(), found.cend());
    for (const QString& id : ids) {
        if (!known.contains(id))
            result.noLongerDue << id;
    }
}

Status SomePlans::issue(
    const StoredPlan& plan, const PlanUse& use, const ConfirmedOrder* confirmed, IssueResult& result)
{
    Result<PlanDay> day = dayOf(plan, use);
    if (!day)
        return day.status();
    if (use.openSince.isValid() && day->mayTrade()) {
        if (Status status = m_instructions.endBefore(plan.id, m_scene.day, change()); !status)
            return status;
    }
    if (const Status reason = day->prepare(); !reason) {
        result.skipped << IssueResult::Skipped{ plan.id, reason };
        return refuse(plan, reason);
    }
    if (confirmed && !(ConfirmedOrder::of({ plan, {}, day->order() }) == *confirmed)) {
        result.changed << plan.id;
        return {};
    }
    day->take();
    const Result<QString> id = m_instructions.add(plan.id, m_scene.day, day->fields(), change());
    if (!id)
        return id.status();
    result.issued << *id;
    return day->completes() ? m_plans.complete(plan, m_scene.day, change()) : Status();
}

// That the market is closed says nothing about the plan.
Status SomePlans::refuse(const StoredPlan& plan, const Status& reason)
{
    switch (reason.error()) {
    case Error::NotATradeDay:
    case Error::NotInCalendar:
    case Error::NotToday:
    case Error::OutsideTradeHours:
        return {};
    case Error::NothingLeft:
        return m_plans.complete(plan, m_scene.day, change());
    default:
        return m_instructions.refuse(plan.id, m_scene.day, errorText(reason), change());
    }
}

} // namespace

ConfirmedOrder ConfirmedOrder::of(const IssueRow& row)
{
    return { row.plan.id, row.plan.version, row.order.price.limit, row.order.quantity, row.order.issuedYuan };
}

bool ConfirmedOrder::operator==(const ConfirmedOrder& other) const
{
    // Both amounts are rounded to fen by the same computation.
    return planId == other.planId && version == other.version && limit == other.limit && quantity == other.quantity
        && !(yuan < other.yuan) && !(yuan > other.yuan);
}

DayIssue::DayIssue(Database& database, const IssueScene& scene)
    : m_database(database)
    , m_scene(scene)
{
}

Result<DayPlans> DayIssue::plans()
{
    return m_scene.closures ? PlanStore(m_database, m_scene.user).plansOfDay(m_scene.day) : m_scene.closures;
}

Result<DayPlans> DayIssue::plans(const QStringList& planIds)
{
    return m_scene.closures ? PlanStore(m_database, m_scene.user).plansOfDay(m_scene.day, planIds) : m_scene.closures;
}

Result<QVector<IssueRow>> DayIssue::preview(
    const QStringList& planIds, const Progress& progress, const QSet<QString>& leftOut)
{
    DayFacts facts(m_database, m_scene);
    SomePlans plans(m_database, m_scene, facts);
    QVector<IssueRow> rows;
    for (int first = 0; first < planIds.size(); first += PlansPerTransaction) {
        if (Status status = plans.preview(planIds.mid(first, PlansPerTransaction), leftOut, rows); !status)
            return status;
        if (!progress(rows.size()))
            break;
    }
    return rows;
}

IssueResult DayIssue::issue(const QStringList& planIds, const Progress& progress)
{
    return issue(planIds, nullptr, progress);
}

IssueResult DayIssue::issue(const QVector<ConfirmedOrder>& orders, const Progress& progress)
{
    QStringList ids;
    Confirmed confirmed;
    for (const ConfirmedOrder& order : orders) {
        ids << order.planId;
        confirmed.insert(order.planId, order);
    }
    return issue(ids, &confirmed, progress);
}

IssueResult DayIssue::issue(const QStringList& planIds, const Confirmed* confirmed, const Progress& progress)
{
    IssueResult result;
    result.failure = m_scene.closures;
    for (int first = 0; first < planIds.size() && result.failure && !result.cancelled; first += PlansPerTransaction) {
        // What was read in one transaction may have changed until the next one.
        DayFacts facts(m_database, m_scene);
        SomePlans plans(m_database, m_scene, facts);
        IssueResult some;
        const QStringList ids = planIds.mid(first, PlansPerTransaction);
        result.failure = m_database.transaction([&] { return plans.issue(ids, confirmed, some); });
        if (!result.failure) {
            result.unknown = m_database.commitFailed() ? some.issued : QStringList();
            result.hasRest = first + PlansPerTransaction < planIds.size();
            break;
        }
        result.issued += some.issued;
        result.alreadyIssued += some.alreadyIssued;
        result.skipped += some.skipped;
        result.changed += some.changed;
        result.noLongerDue += some.noLongerDue;
        result.cancelled = !progress(qMin(first + PlansPerTransaction, static_cast<int>(planIds.size())))
            && first + PlansPerTransaction < planIds.size();
    }
    return result;
}
