#include "MissedDays.h"

#include "AutoPlanField.h"
#include "Kelvo_Fields.h"
#include "PlanTexts.h"
#include "StoredTime.h"

namespace {

QDate dateOf(const StoredPlan& plan, const QString& key)
{
    return PlanTexts::date(plan.record.value(key).toString());
}

QDate firstDay(const StoredPlan& plan)
{
    const QDateTime since = StoredTime::atMarket(plan.activeSince);
    const QDate active = since.time() < MissedDays::latestStart() ? since.date() : since.date().addDays(1);
    return qMax(active, dateOf(plan, AutoPlanField::BaseField::beginDate));
}

QDate lastDay(const StoredPlan& plan, const QDate& today)
{
    return qMin(today.addDays(-1), dateOf(plan, AutoPlanField::BaseField::endDate));
}

bool trades(const StoredPlan& plan, const TradeCalendar& calendar, const QDate& day)
{
    const QString exchange = plan.record.value(Kelvo_Fields::UserAccount::securityExchange).toString();
    return calendar.day(exchange, day) == TradeCalendar::Day::Trades;
}

bool isDue(const StoredPlan& plan)
{
    return plan.state == PlanState::Active && !plan.completed.isValid();
}

} // namespace

QTime MissedDays::latestStart()
{
    return { 15, 0 };
}

QVector<QDate> MissedDays::of(
    const StoredPlan& plan, const QSet<QDate>& handled, const TradeCalendar& calendar, const QDate& today)
{
    QVector<QDate> missed;
    if (!isDue(plan))
        return missed;
    const QDate last = lastDay(plan, today);
    for (QDate day = firstDay(plan); day <= last; day = day.addDays(1)) {
        if (!handled.contains(day) && trades(plan, calendar, day))
            missed << day;
    }
    return missed;
}

QDate MissedDays::last(const StoredPlan& plan, const QDate& handled, const TradeCalendar& calendar, const QDate& today)
{
    if (!isDue(plan))
        return QDate();
    QDate day = lastDay(plan, today);
    const QDate first = firstDay(plan);
    while (day >= first && !trades(plan, calendar, day))
        day = day.addDays(-1);
    return day >= first && !(day <= handled) ? day : QDate();
}
