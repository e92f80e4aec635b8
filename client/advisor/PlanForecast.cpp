#include "PlanForecast.h"

#include "PlanCodes.h"
#include "TickPrice.h"

#include <cmath>
#include <tuple>

namespace {

/// Follows a plan from day to day.
class Course {
public:
    explicit Course(const ForecastedPlan& plan)
        : m_plan(plan)
        , m_terms(plan.terms)
        , m_yuan(TickPrice::toYuan(plan.price.limit.value_or(plan.price.reference), plan.security.pricePrecision))
    {
    }

    double left() const { return qMax(0.0, m_terms.share.total - m_terms.share.used); }
    /// Whether less is left than a lot.
    bool isDone() const;
    /// Repeats the fill of the last day as long as the order stays the same. Returns how often.
    int repeat(int most);
    /// Issues the order of a trade day. Returns whether anything was filled.
    bool issue(int daysLeft, ForecastDay& day);

private:
    /// Takes the fill of the last day from what is left, a number of times.
    void fill(int times);

    const ForecastedPlan& m_plan;
    OrderTerms m_terms;
    const double m_yuan; ///< of one unit
    DayOrder m_last;
};

bool Course::isDone() const
{
    return lotsWithin(m_terms.isAmount ? left() / m_yuan : left(), m_plan.security.quantityStep) == 0;
}

// An order is at most three times as large as its fill, so it stays the same while so much is left.
int Course::repeat(int most)
{
    constexpr double OrderInFills = 3;
    const double filled = static_cast<double>(m_last.fill.quantity);
    double fills = left() / (m_terms.isAmount ? m_last.filledYuan : filled);
    if (m_terms.needsHoldings())
        fills = qMin(fills, m_terms.sellable / filled);
    if (m_terms.needsCash())
        fills = qMin(fills, m_terms.cash / m_last.filledYuan);
    const int times = static_cast<int>(qBound(0.0, std::floor(fills) - OrderInFills, double(most)));
    fill(times);
    return times;
}

void Course::fill(int times)
{
    const double quantity = times * static_cast<double>(m_last.fill.quantity);
    const double yuan = times * m_last.filledYuan;
    m_terms.share.used += m_terms.isAmount ? yuan : quantity;
    if (m_terms.needsHoldings())
        m_terms.sellable -= quantity;
    if (m_terms.needsCash())
        m_terms.cash -= yuan;
}

bool Course::issue(int daysLeft, ForecastDay& day)
{
    m_terms.share.daysLeft = daysLeft;
    const Result<DayOrder> order = dayOrder(m_terms, m_plan.price, m_plan.security, m_plan.limits);
    day.reason = order.status();
    if (!order)
        return false;
    day.quantity = order->quantity;
    day.yuan = order->issuedYuan;
    m_last = *order;
    fill(1);
    return order->fill.quantity > 0;
}

/// The days of the period, without the days after the last one that is looked at.
QVector<ForecastDay> daysOf(const ForecastedPlan& plan, int& tradeDays)
{
    const QString& exchange = plan.security.exchange;
    QVector<ForecastDay> days;
    for (QDate date = plan.first; date <= plan.last && tradeDays < Forecast::MostDays; date = date.addDays(1)) {
        ForecastDay day;
        day.day = date;
        day.kind = plan.calendar.day(exchange, date);
        day.isProvisional = plan.calendar.isProvisional(exchange, date);
        days << day;
        // Nothing is known about later days either.
        if (day.kind == TradeCalendar::Day::Unknown)
            break;
        tradeDays += day.kind == TradeCalendar::Day::Trades ? 1 : 0;
    }
    return days;
}

/// Trade days after the period until the plan is done, or more than the most that are looked at; absent if it never is.
std::optional<int> daysBeyond(Course& course, int tradeDays)
{
    int more = 0;
    while (tradeDays + more <= Forecast::MostDays && !course.isDone()) {
        ForecastDay day;
        if (!course.issue(1, day))
            return {};
        ++more;
        more += course.repeat(Forecast::MostDays + 1 - tradeDays - more);
    }
    return more;
}

auto values(const ForecastDay& day)
{
    return std::tie(day.day, day.kind, day.isProvisional, day.quantity, day.yuan, day.left, day.reason);
}

auto values(const PlanForecast& forecast)
{
    return std::tie(
        forecast.days, forecast.total, forecast.used, forecast.tradeDays, forecast.neededDays, forecast.lastDay);
}

} // namespace

bool ForecastDay::operator==(const ForecastDay& other) const
{
    return values(*this) == values(other);
}

bool PlanForecast::operator==(const PlanForecast& other) const
{
    return values(*this) == values(other);
}

PlanForecast Forecast::of(const ForecastedPlan& plan)
{
    PlanForecast forecast;
    forecast.total = plan.terms.share.total;
    forecast.used = plan.terms.share.used;
    forecast.days = daysOf(plan, forecast.tradeDays);
    Course course(plan);
    int issued = 0;
    for (ForecastDay& day : forecast.days) {
        if (day.kind == TradeCalendar::Day::Trades && !course.isDone()) {
            course.issue(forecast.tradeDays - issued, day);
            ++issued;
            if (course.isDone())
                forecast.lastDay = day.day;
        } else if (day.kind == TradeCalendar::Day::Trades) {
            day.reason = Error::LessThanOneLot;
        }
        day.left = course.left();
    }
    // A reduction has no end; after its last order there is nothing to show.
    const bool isEndless = plan.terms.share.planType == PlanCodes::PlanType::ReduceHoldings;
    while (isEndless && forecast.isComplete() && forecast.days.constLast().day > forecast.lastDay)
        forecast.days.removeLast();
    const auto beyond = daysBeyond(course, forecast.tradeDays);
    forecast.neededDays = beyond ? issued + *beyond : 0;
    return forecast;
}
