#include "FormulaFacts.h"

#include "ErrorText.h"
#include "PlanCodes.h"
#include "TickPrice.h"

#include <cmath>

using Mark = AdvisorRow::Mark;
using namespace PlanCodes;

namespace {

// A result is a floating-point number of yuan.
constexpr double Tolerance = 1e-9;
constexpr int ResultDecimals = 4;

bool hasLimit(const AdvisedPlan& plan)
{
    return plan.form.priceMode != PriceModel::NoLimit;
}

QString text(const AdvisedPlan& plan, qint64 ticks)
{
    return TickPrice::text(ticks, plan.security->pricePrecision);
}

/// The result of the formulas; the plan has a price with a limit.
double result(const AdvisedPlan& plan)
{
    return plan.formula.valueOr(0);
}

} // namespace

QString FormulaFacts::sentence(const AdvisedPlan& plan)
{
    if (!plan.hasFacts())
        return {};
    if (!plan.price)
        return Advisor::tr("没有可用的价格：%1").arg(errorText(plan.price.status()));
    if (!plan.price->limit)
        return Advisor::tr("不限价，以下按昨收价%1估算").arg(text(plan, plan.price->reference));
    const QString price = text(plan, *plan.price->limit);
    if (const QString limit = cut(plan); !limit.isEmpty())
        return Advisor::tr("结果%1，%2").arg(Advisor::number(result(plan), ResultDecimals), limit);
    if (isOffTick(plan))
        return Advisor::tr("结果%1，不在最小价位上，按%2").arg(Advisor::number(result(plan), ResultDecimals), price);
    return Advisor::tr("结果%1").arg(price);
}

bool FormulaFacts::isUsable(const AdvisedPlan& plan)
{
    return !plan.hasFacts() || plan.price;
}

bool FormulaFacts::isOffTick(const AdvisedPlan& plan)
{
    const int precision = plan.security->pricePrecision;
    const auto ticks = TickPrice::fromYuan(result(plan), precision);
    return hasLimit(plan) && ticks && std::abs(result(plan) - TickPrice::toYuan(*ticks, precision)) > Tolerance;
}

QString FormulaFacts::cut(const AdvisedPlan& plan)
{
    if (!plan.price->cutToLimit)
        return {};
    const bool isAbove = *plan.price->limit >= plan.price->reference;
    const QString sentence = isAbove ? Advisor::tr("高于涨停价，按%1") : Advisor::tr("低于跌停价，按%1");
    return sentence.arg(text(plan, *plan.price->limit));
}

AdvisorRows FormulaFacts::rows(const AdvisedPlan& plan)
{
    AdvisorRows rows;
    if (plan.closes.isEmpty())
        return rows;
    const QHash<QString, double>& prices = plan.names;
    const QString day = plan.lastClose().toString(Qt::ISODate);
    const QString today = plan.world.today.toString(Qt::ISODate);
    for (const QString& name : priceNames()) {
        const auto value = prices.constFind(name);
        if (value == prices.cend()) {
            rows << AdvisorRow{ { name, Advisor::tr("没有"), QString() }, Mark::Faint, QString() };
            continue;
        }
        const bool isOfToday = name == PriceItem::UpperLimit || name == PriceItem::LowerLimit;
        const bool isAverage = !isOfToday && name != PriceItem::PreviousClose;
        const int decimals = isAverage ? ResultDecimals : plan.security->pricePrecision;
        rows << AdvisorRow{ { name, Advisor::number(*value, decimals), isOfToday ? today : day }, Mark::Plain, name };
    }
    return rows;
}

AdvisorColumns FormulaFacts::columns()
{
    return { { Advisor::tr("名称"), 28 }, { Advisor::tr("数值"), 36, true }, { Advisor::tr("日期"), 36, true } };
}
