#include "ForecastTexts.h"

#include "ErrorText.h"

using Mark = AdvisorRow::Mark;

namespace {

/// The reason of the last day on which nothing could go out although something was left.
Status obstacle(const PlanForecast& forecast)
{
    for (auto day = forecast.days.crbegin(); day != forecast.days.crend(); ++day) {
        if (!day->reason)
            return day->reason;
    }
    return {};
}

QString unendedText(const AdvisedPlan& plan, const PlanForecast& forecast)
{
    const QString period = Advisor::tr("期间%1个交易日").arg(forecast.tradeDays);
    if (const Status reason = obstacle(forecast); !reason)
        return Advisor::tr("%1，不会完成：%2").arg(period, errorText(reason));
    const double before = forecast.total - forecast.used;
    const double left = forecast.days.isEmpty() ? before : forecast.days.constLast().left;
    if (left >= before)
        return Advisor::tr("%1，按现价不会成交").arg(period);
    return Advisor::tr("%1，按现价只能部分成交，最后剩余%2").arg(period, plan.withUnit(left, plan.form.isAmount()));
}

QString issuedText(const ForecastDay& day)
{
    switch (day.kind) {
    case TradeCalendar::Day::Closed:
        return Advisor::tr("休市");
    case TradeCalendar::Day::Unknown:
        return Advisor::tr("之后的交易日未知");
    case TradeCalendar::Day::Trades:
        break;
    }
    return day.quantity > 0 ? Advisor::number(static_cast<double>(day.quantity)) : QStringLiteral("–");
}

} // namespace

QString ForecastTexts::headline(const AdvisedPlan& plan)
{
    if (!plan.hasFacts())
        return plan.failure() ? QString() : errorText(plan.failure());
    if (!plan.forecast)
        return errorText(plan.forecast.status());
    const PlanForecast& forecast = *plan.forecast;
    if (forecast.total <= 0)
        return Advisor::tr("没有目标");
    if (forecast.used >= forecast.total)
        return Advisor::tr("目标已经完成");
    if (forecast.isComplete())
        return Advisor::tr("预计%1完成，需%2个交易日")
            .arg(forecast.lastDay.toString(Qt::ISODate), QString::number(forecast.neededDays));
    if (forecast.neededDays == 0)
        return unendedText(plan, forecast);
    const QString needed = QString::number(qMin(forecast.neededDays, Forecast::MostDays));
    const QString sentence = forecast.neededDays > Forecast::MostDays ? Advisor::tr("需%1个以上交易日，期间仅%2个")
                                                                      : Advisor::tr("需%1个交易日，期间仅%2个");
    return sentence.arg(needed, QString::number(forecast.tradeDays));
}

QString ForecastTexts::reduction(const AdvisedPlan& plan)
{
    if (!plan.form.isReduction() || !plan.terms)
        return {};
    const PlanShare& share = plan.terms->share;
    return Advisor::tr("每日最多%1，即目标的%2%；总股本未知，未核对连续90天减持不超过总股本1%")
        .arg(plan.withUnit(share.total * share.ratio), QString::number(share.ratio * 100));
}

AdvisorRow ForecastTexts::row(const ForecastDay& day)
{
    constexpr int YuanDecimals = 2;
    const QString date = day.day.toString(Qt::ISODate);
    const bool trades = day.kind == TradeCalendar::Day::Trades;
    AdvisorRow shown;
    shown.cells = QStringList{ day.isProvisional ? Advisor::tr("%1（未核实）").arg(date) : date, issuedText(day),
        day.quantity > 0 ? Advisor::number(day.yuan, YuanDecimals) : QString(),
        // Whole yuan, for which the column is wide enough.
        trades ? Advisor::number(day.left) : QString() };
    if (day.kind == TradeCalendar::Day::Closed)
        shown.mark = Mark::Shaded;
    else if (day.kind == TradeCalendar::Day::Unknown || day.isProvisional)
        shown.mark = Mark::Doubtful;
    return shown;
}

AdvisorColumns ForecastTexts::columns()
{
    return { { Advisor::tr("日期"), 28 }, { Advisor::tr("下达"), 19, true }, { Advisor::tr("金额（元）"), 27, true },
        { Advisor::tr("剩余"), 26, true } };
}

bool ForecastTexts::isInTime(const AdvisedPlan& plan)
{
    return !plan.forecast || plan.forecast->used >= plan.forecast->total || plan.forecast->isComplete();
}
