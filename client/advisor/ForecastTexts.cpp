#include "ForecastTexts.h"

#include "ErrorText.h"

#include <QLocale>

#include <tuple>

using Mark = AdvisorRow::Mark;

namespace {

const QLatin1Char ProvisionalSign('?');

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
        return Advisor::tr("未知");
    case TradeCalendar::Day::Trades:
        break;
    }
    return day.quantity > 0 ? Advisor::number(static_cast<double>(day.quantity)) : QStringLiteral("–");
}

constexpr int YuanDecimals = 2;
constexpr double TenThousand = 1e4;
constexpr double HundredMillion = 1e8;
constexpr double Million = 1e6;

/// At most four digits before the point, or two after it.
QString shortText(double number)
{
    if (number >= HundredMillion)
        return Advisor::tr("%1亿").arg(Advisor::number(number / HundredMillion, 2));
    if (number >= TenThousand)
        return Advisor::tr("%1万").arg(QString::number(number / TenThousand, 'f', number < Million ? 2 : 0));
    return Advisor::number(number);
}

QString quantityText(double quantity, ForecastTexts::Detail detail)
{
    return detail == ForecastTexts::Detail::Short ? shortText(quantity) : Advisor::number(quantity);
}

QString yuanText(double yuan, ForecastTexts::Detail detail)
{
    if (detail == ForecastTexts::Detail::ShortYuan)
        return shortText(yuan);
    return Advisor::number(yuan, detail == ForecastTexts::Detail::Full ? YuanDecimals : 0);
}

bool showsYuan(ForecastTexts::Detail detail)
{
    return detail != ForecastTexts::Detail::NoYuan && detail != ForecastTexts::Detail::Short;
}

/// Short texts of smaller numbers may be wider.
double widestUpTo(double number, bool isShort)
{
    constexpr double WidestShort = 9999 * TenThousand;
    return isShort && number > TenThousand && number < 10 * HundredMillion ? WidestShort : number;
}

QString dateText(const ForecastDay& day, ForecastTexts::Detail detail)
{
    const QString format =
        detail == ForecastTexts::Detail::Short ? QStringLiteral("MM-dd") : QStringLiteral("yyyy-MM-dd");
    const QString date = QLocale::c().toString(day.day, format);
    return day.isProvisional ? date + ProvisionalSign : date;
}

QStringList hintsOf(const ForecastDay& day)
{
    const QString date = day.day.toString(Qt::ISODate);
    const QString amount = Advisor::number(day.yuan, YuanDecimals);
    QString issued = issuedText(day);
    if (day.kind == TradeCalendar::Day::Unknown)
        issued = Advisor::tr("之后的交易日未知");
    else if (day.quantity > 0)
        issued = Advisor::tr("%1，%2元").arg(issued, amount);
    return { day.isProvisional ? Advisor::tr("%1，当年休市安排未公布，未核实").arg(date) : date, issued,
        day.quantity > 0 ? amount : QString(),
        day.kind == TradeCalendar::Day::Trades ? Advisor::number(day.left) : QString() };
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

AdvisorRow ForecastTexts::row(const ForecastDay& day, Detail detail)
{
    const bool trades = day.kind == TradeCalendar::Day::Trades;
    AdvisorRow shown;
    shown.cells = QStringList{ dateText(day, detail),
        day.quantity > 0 ? quantityText(static_cast<double>(day.quantity), detail) : issuedText(day),
        day.quantity > 0 ? yuanText(day.yuan, detail) : QString(),
        trades ? quantityText(day.left, detail) : QString() };
    shown.hints = hintsOf(day);
    if (day.kind == TradeCalendar::Day::Closed)
        shown.mark = Mark::Shaded;
    else if (day.kind == TradeCalendar::Day::Unknown || day.isProvisional)
        shown.mark = Mark::Doubtful;
    return shown;
}

bool ForecastTexts::Extremes::operator==(const Extremes& other) const
{
    const auto values = [](const Extremes& of) { return std::tie(of.isProvisional, of.quantity, of.yuan, of.left); };
    return values(*this) == values(other);
}

ForecastTexts::Extremes ForecastTexts::extremes(const QVector<ForecastDay>& days)
{
    Extremes found;
    for (const ForecastDay& day : days) {
        found.isProvisional |= day.isProvisional;
        found.quantity = qMax(found.quantity, day.quantity);
        found.yuan = qMax(found.yuan, day.yuan);
        found.left = qMax(found.left, day.left);
    }
    return found;
}

QStringList ForecastTexts::widest(const Extremes& extremes, Detail detail)
{
    ForecastDay day;
    day.day = QDate(2000, 10, 20);
    day.isProvisional = extremes.isProvisional;
    const bool isShort = detail == Detail::Short;
    const double quantity = widestUpTo(static_cast<double>(extremes.quantity), isShort);
    const QString yuan = yuanText(widestUpTo(extremes.yuan, detail == Detail::ShortYuan), detail);
    return { dateText(day, detail), quantityText(quantity, detail), showsYuan(detail) ? yuan : QString(),
        quantityText(widestUpTo(extremes.left, isShort), detail) };
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
