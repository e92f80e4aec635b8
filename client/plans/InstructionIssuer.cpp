#include "InstructionIssuer.h"

#include "AutoPlanField.h"
#include "ClientSession.h"
#include "DayPrice.h"
#include "DayShare.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "Orlo_Fields.h"
#include "PlanCodes.h"
#include "PlanEvents.h"
#include "PlanTexts.h"
#include "PositionStore.h"
#include "SecurityStore.h"
#include "TickPrice.h"

#include <QDebug>

namespace BaseField = AutoPlanField::BaseField;
using namespace PlanCodes;

namespace {

constexpr int yuanDecimals = 2;

using Fields = InstructionStore::Fields;

QString quantityText(qint64 quantity)
{
    return QString::number(quantity);
}

QString amountText(qint64 quantity, qint64 ticks, int precision)
{
    const double amount = static_cast<double>(quantity) * TickPrice::toYuan(ticks, precision);
    return QString::number(amount, 'f', yuanDecimals);
}

bool hasEnded(const Fields& fields)
{
    return fields.value(FieldId::EndState).toString() == EndState::Ended;
}

/// One plan on one day.
class PlanDay {
public:
    PlanDay(ClientSession& session, const StoredPlan& plan, const QDate& day)
        : m_session(session)
        , m_plan(plan)
        , m_day(day)
        , m_other(PlanTexts::otherParam(text(BaseField::planOtherParam)).value_or(Fields()))
        , m_security(session.market().find(text(Kelvo_Fields::Security::symbol)))
    {
    }

    /// Ends what is open from earlier days.
    QString endEarlier();
    /// Why the plan gets no instruction; empty when `fields` may be asked for.
    QString prepare();
    Fields fields() const;
    bool isIssued() { return !m_session.instructions().ofDay(m_plan.id, m_day).isEmpty(); }

private:
    QString text(const QString& key) const { return m_plan.record.value(key).toString(); }
    QString other(const QString& key) const { return m_other.value(key).toString(); }
    bool isAmount() const { return other(FieldId::TargetType) == InstructionTargetType::AmountOrder; }
    bool isReduction() const { return text(Orlo_Fields::AutoPlan::templateCode) == PlanType::ReduceHoldings; }

    QString dayError() const;
    QString readShare();
    QString readAmountShare();
    QString readQuantityShare();
    QVector<qint64> closesBefore() const;
    double holdings() const;
    double used() const;
    int daysLeft() const;

    ClientSession& m_session;
    const StoredPlan m_plan;
    const QDate m_day;
    const Fields m_other;
    const Security* const m_security;
    PlanShare m_share;
    DayPrice m_price;
    qint64 m_quantity = 0;
};

QString PlanDay::endEarlier()
{
    InstructionStore store = m_session.instructions();
    const auto instructions = store.ofPlan(m_plan.id);
    for (auto it = instructions.cbegin(); it != instructions.cend(); ++it) {
        const QDate issued = PlanTexts::date(it->value(FieldId::TradeDate).toString());
        if (hasEnded(*it) || !issued.isValid() || issued >= m_day)
            continue;
        const QString reason = store.update(m_plan.id, it.key(), { { FieldId::EndState, EndState::Ended } });
        if (!reason.isEmpty())
            return reason;
    }
    return QString();
}

QString PlanDay::prepare()
{
    if (!m_security)
        return QStringLiteral("证券“%1”不存在").arg(text(Kelvo_Fields::Security::symbol));
    QString reason = dayError();
    if (reason.isEmpty())
        reason = readShare();
    if (!reason.isEmpty())
        return reason;
    m_price = dayPrice(m_plan.record, *m_security, closesBefore());
    if (!m_price.reason.isEmpty())
        return m_price.reason;
    const int lot = m_security->quantityStep;
    const double price = TickPrice::toYuan(m_price.limit.value_or(m_price.reference), m_security->pricePrecision);
    m_quantity = isAmount() ? lotsWithin(dayShare(m_share) / price, lot) : dayQuantity(m_share, lot);
    return m_quantity > 0 ? QString() : QStringLiteral("剩余数量或金额不足一手");
}

Fields PlanDay::fields() const
{
    const int precision = m_security->pricePrecision;
    const bool isBuy = text(BaseField::orderSide) == Kelvo_Values::OrderSide::buy;
    const Fill fill = simulateFill(isBuy, m_price, m_quantity, m_security->quantityStep);
    if (m_price.cutToLimit)
        qInfo() << "InstructionIssuer::issueDay" << m_plan.id << "price cut to the day's limit price";
    return {
        { FieldId::TradeDate, PlanTexts::text(m_day) },
        { FieldId::EndState, fill.quantity == m_quantity ? EndState::Ended : EndState::Running },
        { FieldId::TargetType, isAmount() ? InstructionTargetType::AmountOrder : InstructionTargetType::QtyOrder },
        { FieldId::Price, TickPrice::text(m_price.limit.value_or(0), precision) },
        { FieldId::IssuedQty, quantityText(m_quantity) },
        { FieldId::FilledQty, quantityText(fill.quantity) },
        { FieldId::IssuedAmount, amountText(m_quantity, m_price.limit.value_or(m_price.reference), precision) },
        { Orlo_Fields::Security::cumAmount, amountText(fill.quantity, fill.price, precision) },
    };
}

QString PlanDay::dayError() const
{
    switch (m_session.calendar().day(m_security->exchange, m_day)) {
    case TradeCalendar::Day::Trades:
        return QString();
    case TradeCalendar::Day::Closed:
        return QStringLiteral("%1不是交易日").arg(PlanTexts::text(m_day));
    case TradeCalendar::Day::Unknown:
        break;
    }
    return QStringLiteral("%1不在交易日历之内").arg(PlanTexts::text(m_day));
}

QString PlanDay::readShare()
{
    m_share.planType = text(Orlo_Fields::AutoPlan::templateCode);
    const QString reason = isAmount() ? readAmountShare() : readQuantityShare();
    m_share.used = used();
    m_share.daysLeft = daysLeft();
    return reason;
}

QString PlanDay::readAmountShare()
{
    const auto total = PlanTexts::decimalNumber(other(BaseField::tradeAmount));
    if (!total)
        return QStringLiteral("目标金额“%1”不是数字").arg(other(BaseField::tradeAmount).left(32));
    m_share.total = *total;
    m_share.perDay = PlanTexts::decimalNumber(other(BaseField::dayMaxTradeAmount)).value_or(0);
    return QString();
}

QString PlanDay::readQuantityShare()
{
    const auto total = PlanTexts::wholeNumber(text(BaseField::totalQty));
    if (!total)
        return QStringLiteral("目标总量“%1”不是整数").arg(text(BaseField::totalQty).left(32));
    const qint64 perDay = PlanTexts::wholeNumber(other(AutoPlanField::Progress::CurrentQty)).value_or(0);
    m_share.total = static_cast<double>(*total * m_security->displayFactor);
    m_share.perDay = static_cast<double>(perDay * m_security->displayFactor);
    m_share.ratio = PlanTexts::decimalNumber(other(BaseField::JCRatio)).value_or(0);
    // Without a total of its own a reduction aims at all that may be sold.
    if (isReduction() && *total == 0)
        m_share.total = holdings();
    return QString();
}

// The stored closes may reach beyond a day that is issued late.
QVector<qint64> PlanDay::closesBefore() const
{
    CloseHistory history = SecurityStore(m_session.database()).closes(m_security->symbol);
    QDate last = history.lastDay;
    while (last.isValid() && last >= m_day && !history.ticks.isEmpty()) {
        if (m_session.calendar().day(m_security->exchange, last) == TradeCalendar::Day::Trades)
            history.ticks.removeLast();
        last = last.addDays(-1);
    }
    return history.ticks;
}

double PlanDay::holdings() const
{
    qint64 sum = 0;
    const auto positions = PositionStore(m_session.database())
                               .positions(text(Kelvo_Fields::UserAccount::tradingAccount),
                                   text(Kelvo_Fields::UserAccount::securityAccount), m_security->symbol);
    for (const StoredPosition& position : positions)
        sum += position.tradeableQuantity;
    return static_cast<double>(sum * m_security->displayFactor);
}

double PlanDay::used() const
{
    const QString& filled = isAmount() ? Orlo_Fields::Security::cumAmount : FieldId::FilledQty;
    const QString& issued = isAmount() ? FieldId::IssuedAmount : FieldId::IssuedQty;
    double sum = 0;
    const auto instructions = m_session.instructions().ofPlan(m_plan.id);
    for (const Fields& fields : instructions)
        sum += fields.value(hasEnded(fields) ? filled : issued).toDouble();
    return sum;
}

int PlanDay::daysLeft() const
{
    const QDate end = PlanTexts::date(text(BaseField::endDate));
    int days = 0;
    for (QDate date = m_day; date <= end; date = date.addDays(1)) {
        const TradeCalendar::Day kind = m_session.calendar().day(m_security->exchange, date);
        if (kind == TradeCalendar::Day::Unknown)
            break;
        days += kind == TradeCalendar::Day::Trades ? 1 : 0;
    }
    return days;
}

QString issuePlan(ClientSession& session, const QString& planId, const QDate& day, IssueResult& result)
{
    PlanDay planDay(session, session.plans().plan(planId), day);
    if (planDay.isIssued()) {
        result.alreadyIssued << planId;
        return QString();
    }
    const QString reason = planDay.endEarlier();
    if (!reason.isEmpty())
        return reason;
    const QString skipped = planDay.prepare();
    if (!skipped.isEmpty()) {
        result.skipped << IssueResult::Skipped{ planId, skipped };
        return QString();
    }
    const InstructionStore::Added added = session.instructions().add(planId, day, planDay.fields());
    result.issued << added.id;
    return added.reason;
}

QStringList activePlans(ClientSession& session, const QDate& day)
{
    return session.plans().idsOfPeriod(BaseField::beginDate, BaseField::endDate, day);
}

} // namespace

IssueResult InstructionIssuer::issueDay(const QDate& day)
{
    ClientSession& session = ClientSession::instance();
    IssueResult result;
    if (!session.isOpen() || !day.isValid()) {
        result.reason = session.isOpen() ? QStringLiteral("日期无效") : QStringLiteral("尚未登录，无法下达指令");
        return result;
    }
    const QStringList plans = activePlans(session, day);
    const QString failed = session.database().transaction([&] {
        QString reason;
        for (int i = 0; i < plans.size() && reason.isEmpty(); ++i)
            reason = issuePlan(session, plans.at(i), day, result);
        return reason;
    });
    if (!failed.isEmpty())
        return IssueResult{ failed, {}, {}, {} };
    for (const QString& plan : plans) {
        if (!result.alreadyIssued.contains(plan))
            Q_EMIT PlanEvents::instance().planStored(plan);
    }
    return result;
}
