#include "InstructionIssuer.h"

#include "AutoPlanField.h"
#include "ClientSession.h"
#include "DayOrder.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Orlo_Fields.h"
#include "PlanCodes.h"
#include "PlanEvents.h"
#include "PlanFacts.h"
#include "PlanRights.h"
#include "PlanTexts.h"
#include "TickPrice.h"

#include <QDebug>

namespace BaseField = AutoPlanField::BaseField;
using namespace PlanCodes;

namespace {

constexpr int YuanDecimals = 2;
constexpr int PlansPerRead = 500;

using Fields = InstructionStore::Fields;

QString quantityText(qint64 quantity)
{
    return QString::number(quantity);
}

QString amountText(double yuan)
{
    return QString::number(yuan, 'f', YuanDecimals);
}

/// What plans of a day have in common, read once.
class DayFacts {
public:
    DayFacts(ClientSession& session, const QDate& day)
        : m_session(session)
        , m_day(day)
        , m_rights(session.database(), day)
    {
    }

    QDate day() const { return m_day; }
    Result<PlanRights> rights(const StoredPlan& plan) { return m_rights.ofHandler(m_session.user().id, plan); }
    Result<QVector<qint64>> closes(const Security& security);
    /// Trade days until the last one, both included.
    int daysUntil(const QString& exchange, const QString& lastDay);

private:
    ClientSession& m_session;
    const QDate m_day;
    PlanRightsReader m_rights;
    QHash<QString, QVector<qint64>> m_closes;
    QHash<QPair<QString, QString>, int> m_days;
};

Result<QVector<qint64>> DayFacts::closes(const Security& security)
{
    const auto known = m_closes.constFind(security.symbol);
    if (known != m_closes.cend())
        return *known;
    const Result<CloseHistory> read = SecurityStore(m_session.database()).closes(security.symbol);
    if (!read)
        return read.status();
    return m_closes.insert(security.symbol, PlanFacts::closesBefore(*read, m_session.calendar(), security, m_day))
        .value();
}

int DayFacts::daysUntil(const QString& exchange, const QString& lastDay)
{
    const auto known = m_days.constFind({ exchange, lastDay });
    if (known != m_days.cend())
        return *known;
    const QDate last = PlanTexts::date(lastDay);
    int days = 0;
    for (QDate date = m_day; date <= last; date = date.addDays(1)) {
        const TradeCalendar::Day kind = m_session.calendar().day(exchange, date);
        if (kind == TradeCalendar::Day::Unknown)
            break;
        days += kind == TradeCalendar::Day::Trades ? 1 : 0;
    }
    m_days.insert({ exchange, lastDay }, days);
    return days;
}

/// One plan on one day.
class PlanDay {
public:
    PlanDay(
        ClientSession& session, const StoredPlan& plan, const PlanUse& use, const PlanRights& rights, DayFacts& facts)
        : m_session(session)
        , m_plan(plan)
        , m_use(use)
        , m_rights(rights)
        , m_facts(facts)
        , m_day(facts.day())
        , m_security(session.market().find(text(Kelvo_Fields::Security::symbol)))
    {
    }

    /// Fails if the plan gets no instruction; on success `fields` may be called.
    Status prepare();
    Fields fields() const;

private:
    QString text(const QString& key) const { return m_plan.record.value(key).toString(); }

    Status checkRights() const;
    Status checkDay() const;
    Status readTerms();

    ClientSession& m_session;
    const StoredPlan m_plan;
    const PlanUse m_use;
    const PlanRights m_rights;
    DayFacts& m_facts;
    const QDate m_day;
    const Security* const m_security;
    OrderTerms m_terms;
    DayOrder m_order;
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
    m_order = order.valueOr(DayOrder());
    return order.status();
}

Fields PlanDay::fields() const
{
    if (m_order.price.cutToLimit)
        qInfo() << "InstructionIssuer::issueDay" << m_plan.id << "price cut to the day's limit price";
    const qint64 filled = m_order.fill.quantity;
    return {
        { FieldId::EndState, filled == m_order.quantity ? EndState::Ended : EndState::Running },
        { FieldId::TargetType,
            m_terms.isAmount ? InstructionTargetType::AmountOrder : InstructionTargetType::QtyOrder },
        { FieldId::Price, TickPrice::text(m_order.price.limit.value_or(0), m_security->pricePrecision) },
        { FieldId::IssuedQty, quantityText(m_order.quantity) },
        { FieldId::FilledQty, quantityText(filled) },
        { FieldId::IssuedAmount, amountText(m_order.issuedYuan) },
        { Orlo_Fields::Security::cumAmount, amountText(m_order.filledYuan) },
    };
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
    switch (m_session.calendar().day(m_security->exchange, m_day)) {
    case TradeCalendar::Day::Trades:
        return {};
    case TradeCalendar::Day::Closed:
        return { Error::NotATradeDay, { QString(), PlanTexts::text(m_day) } };
    case TradeCalendar::Day::Unknown:
        break;
    }
    return { Error::NotInCalendar, { QString(), PlanTexts::text(m_day) } };
}

Status PlanDay::readTerms()
{
    const auto sellable = [this] { return PlanFacts::sellable(m_session, m_plan.record, *m_security); };
    const Result<OrderTerms> terms = orderTerms(m_plan.record, *m_security, sellable);
    if (!terms)
        return terms.status();
    m_terms = *terms;
    m_terms.share.used = m_terms.isAmount ? m_use.yuan : m_use.quantity;
    m_terms.share.daysLeft = m_facts.daysUntil(m_security->exchange, text(BaseField::endDate));
    return {};
}

/// Ends the open instructions of earlier days. Returns what the plan has used afterwards.
Result<PlanUse> useWithoutOpen(ClientSession& session, const QDate& day, const QString& planId, const PlanUse& use)
{
    if (!use.openSince.isValid() || use.openSince >= day)
        return use;
    InstructionStore instructions = session.instructions();
    if (Status status = instructions.endBefore(planId, day, session.changeNow()); !status)
        return status;
    const auto uses = instructions.used({ planId });
    return uses ? Result<PlanUse>(uses->value(planId)) : uses.status();
}

Status issuePlan(
    ClientSession& session, DayFacts& facts, const StoredPlan& plan, const PlanUse& stored, IssueResult& result)
{
    const Result<PlanUse> use = useWithoutOpen(session, facts.day(), plan.id, stored);
    if (!use)
        return use.status();
    const Result<PlanRights> rights = facts.rights(plan);
    if (!rights)
        return rights.status();
    PlanDay planDay(session, plan, *use, *rights, facts);
    if (const Status skipped = planDay.prepare(); !skipped) {
        result.skipped << IssueResult::Skipped{ plan.id, skipped };
        return {};
    }
    const Result<QString> id = session.instructions().add(plan.id, facts.day(), planDay.fields(), session.changeNow());
    if (!id)
        return id.status();
    result.issued << *id;
    return {};
}

Status issuePlans(ClientSession& session, DayFacts& facts, const QStringList& planIds, IssueResult& result)
{
    const auto plans = session.plans().plans(planIds);
    if (!plans)
        return plans.status();
    const auto uses = session.instructions().used(planIds);
    if (!uses)
        return uses.status();
    for (const StoredPlan& plan : *plans) {
        if (Status status = issuePlan(session, facts, plan, uses->value(plan.id), result); !status)
            return status;
    }
    return {};
}

/// Whether a failed transaction stored the day all the same, which is possible if its COMMIT failed.
Status outcomeOf(ClientSession& session, const Status& failure, const IssueResult& result)
{
    if (!session.database().commitFailed() || result.issued.isEmpty())
        return failure;
    const auto find = [first = result.issued.constFirst()](Database& database) -> Result<qint64> {
        const auto stored = InstructionStore(database).ofPlan(first.section(QLatin1Char('-'), 0, 0));
        return stored ? Result<qint64>(stored->contains(first) ? 1 : 0) : stored.status();
    };
    const auto known = [](qint64 found) {
        Q_EMIT PlanEvents::instance().outcomeKnown(UnknownRequest::Issue, found != 0, QString());
    };
    const Result<qint64> stored = session.lookUp(QStringLiteral("issue"), find, known);
    if (!stored)
        return { Error::OutcomeUnknown, {}, failure };
    return *stored == 0 ? failure : Status();
}

} // namespace

Result<IssueResult> InstructionIssuer::issueDay(const QDate& day)
{
    ClientSession& session = ClientSession::instance();
    if (!session.isOpen())
        return Error::IssuingNeedsLogin;
    if (!day.isValid())
        return { Error::InvalidDate, { QStringLiteral("日期") } };
    IssueResult result;
    QStringList due;
    Status status = session.database().transaction([&]() -> Status {
        const Result<DayPlans> plans = session.plans().plansOfDay(day);
        if (!plans)
            return plans.status();
        result.alreadyIssued = plans->issued;
        due = plans->due;
        DayFacts facts(session, day);
        for (int first = 0; first < due.size(); first += PlansPerRead) {
            if (Status issued = issuePlans(session, facts, due.mid(first, PlansPerRead), result); !issued)
                return issued;
        }
        return {};
    });
    if (!status)
        status = outcomeOf(session, status, result);
    if (!status)
        return status;
    for (const QString& plan : qAsConst(due))
        Q_EMIT PlanEvents::instance().planStored(plan);
    return result;
}
