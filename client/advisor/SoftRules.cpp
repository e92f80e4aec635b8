// Rules of the advisor's own. They warn of what is allowed, but probably not wanted.
#include "AutoPlanField.h"
#include "ErrorText.h"
#include "ForecastTexts.h"
#include "FormulaFacts.h"
#include "Kelvo_Fields.h"
#include "PlanCodes.h"
#include "RuleParts.h"
#include "Rulebook.h"
#include "SecurityFacts.h"
#include "TickPrice.h"

#include <algorithm>
#include <cmath>

using namespace PlanCodes;

namespace RuleList {
namespace {

constexpr double Tolerance = 1e-6;
// A plan is unusual if it is this many times as large as the middle one of at least so many.
constexpr double Unusual = 10;
constexpr int LeastPlans = 5;

Verdict fitsLot(const AdvisedPlan& plan, double quantity)
{
    if (!plan.security || plan.form.isAmount() || quantity <= 0)
        return notApplicable();
    const int lot = plan.security->quantityStep;
    const double odd = quantity - static_cast<double>(lotsWithin(quantity, lot));
    return odd < Tolerance
        ? passed()
        : doubtful(Advisor::tr("每手%1，零头%2不会下达").arg(QString::number(lot), plan.withUnit(odd)));
}

Verdict targetIsWholeLots(const AdvisedPlan& plan)
{
    return fitsLot(plan, plan.form.targetValue());
}

Verdict dailyQuantityIsWholeLots(const AdvisedPlan& plan)
{
    return plan.form.hasPerDay ? fitsLot(plan, plan.form.perDayValue()) : notApplicable();
}

bool hasLimit(const AdvisedPlan& plan)
{
    return plan.price && plan.price->limit;
}

Verdict formulaGivesPrice(const AdvisedPlan& plan)
{
    if (!plan.security || plan.form.priceMode == PriceModel::NoLimit)
        return notApplicable();
    if (!plan.hasFacts())
        return open(plan);
    return plan.price ? passed() : doubtful(errorText(plan.price.status()));
}

// Prices are stored in units of the security's last decimal, which may be finer than the tick of its board.
std::optional<double> coarserTick(const AdvisedPlan& plan)
{
    const auto tick = Rulebook::present().value(*plan.security, TradeRule::Tick, plan.firstDay());
    const double steps = tick ? *tick * std::pow(10, plan.security->pricePrecision) : 0;
    const bool isOff = steps > 1 && std::fmod(static_cast<double>(*plan.price->limit), std::round(steps)) != 0;
    return isOff ? tick : std::nullopt;
}

Verdict priceIsOnTick(const AdvisedPlan& plan)
{
    if (!hasLimit(plan))
        return notApplicable();
    const QString price = TickPrice::text(*plan.price->limit, plan.security->pricePrecision);
    if (const auto tick = coarserTick(plan))
        return doubtful(Advisor::tr("最小价位是%1").arg(*tick));
    return FormulaFacts::isOffTick(plan) ? doubtful(Advisor::tr("不在最小价位上，按%1").arg(price)) : passed();
}

Verdict purchaseIsLargeEnough(const AdvisedPlan& plan)
{
    if (!plan.security || plan.form.isAmount() || !plan.form.isBuy())
        return notApplicable();
    const auto lot = Rulebook::present().value(*plan.security, TradeRule::Lot, plan.firstDay());
    const double perDay = plan.form.hasPerDay ? plan.form.perDayValue() : 0;
    const double smallest = perDay > 0 ? std::min(perDay, plan.form.targetValue()) : plan.form.targetValue();
    if (!lot || smallest <= 0)
        return notApplicable();
    return smallest >= *lot ? passed() : doubtful(Advisor::tr("买入每笔至少%1").arg(plan.withUnit(*lot)));
}

QString valueText(TradeRule rule, double value)
{
    if (rule != TradeRule::Limit)
        return QString::number(value);
    return value > 0 ? QStringLiteral("%1%").arg(value / 10) : Advisor::tr("无");
}

QString changeText(const Rulebook::Change& change)
{
    QString name;
    switch (change.rule) {
    case TradeRule::Limit:
        name = Advisor::tr("涨跌幅");
        break;
    case TradeRule::Lot:
        name = Advisor::tr("最小买入数量");
        break;
    case TradeRule::Step:
        name = Advisor::tr("数量步长");
        break;
    case TradeRule::Tick:
        name = Advisor::tr("最小价位");
        break;
    }
    return Advisor::tr("%1起%2由%3改为%4")
        .arg(change.day.toString(Qt::ISODate), name, valueText(change.rule, change.before),
            valueText(change.rule, change.after));
}

Verdict rulesStayTheSame(const AdvisedPlan& plan)
{
    if (!plan.security || !plan.form.begin.isValid())
        return notApplicable();
    const Security* const own = plan.world.market.find(plan.form.symbol);
    QStringList texts;
    for (const Rulebook::Change& change : Rulebook::present().changes(*own, plan.firstDay(), plan.form.lastDay()))
        texts << changeText(change);
    return texts.isEmpty() ? passed() : doubtful(texts.join(Advisor::tr("；")));
}

Verdict priceIsWithinBand(const AdvisedPlan& plan)
{
    if (!hasLimit(plan))
        return notApplicable();
    const QString cut = FormulaFacts::cut(plan);
    return cut.isEmpty() ? passed() : doubtful(cut);
}

/// The value of a stored plan's target in yuan; 0 if it is not known.
double valueOf(const AdvisedPlan& plan, const StoredPlan& stored)
{
    const Security* const security =
        plan.world.market.find(stored.record.value(Kelvo_Fields::Security::symbol).toString());
    if (!security)
        return 0;
    const auto terms = orderTerms(stored.record, *security, {}, [] { return Result<double>(0.0); });
    if (!terms)
        return 0;
    const double yuan = TickPrice::toYuan(security->previousClose, security->pricePrecision);
    return terms->isAmount ? terms->share.total : terms->share.total * yuan;
}

Verdict sizeIsUsual(const AdvisedPlan& plan)
{
    if (!plan.terms || !plan.price)
        return notApplicable();
    QVector<double> values;
    for (const StoredPlan& stored : plan.facts().recentPlans) {
        if (const double value = valueOf(plan, stored); value > 0)
            values << value;
    }
    if (values.size() < LeastPlans)
        return notApplicable();
    const auto middle = values.begin() + values.size() / 2;
    std::nth_element(values.begin(), middle, values.end());
    const double yuan = TickPrice::toYuan(plan.price->reference, plan.security->pricePrecision);
    const double value = plan.terms->isAmount ? plan.terms->share.total : plan.terms->share.total * yuan;
    if (value <= Unusual * *middle + Tolerance)
        return passed();
    return doubtful(Advisor::tr("约%1元，是该账户通常%2元的%3倍")
                        .arg(Advisor::number(value), Advisor::number(*middle), Advisor::number(value / *middle)));
}

Verdict noPlanIsOpposite(const AdvisedPlan& plan)
{
    if (!plan.hasFacts())
        return plan.security ? open(plan) : notApplicable();
    QStringList ids;
    for (const StoredPlan& other : plan.facts().openPlans) {
        if (SecurityFacts::isOpposite(plan, other))
            ids << other.id;
    }
    return ids.isEmpty() ? passed() : doubtful(Advisor::tr("同一证券有反向计划%1").arg(ids.join(QLatin1Char(' '))));
}

/// What other plans of the account on the security would sell, in displayed units.
double soldByOthers(const AdvisedPlan& plan)
{
    double sum = 0;
    for (const StoredPlan& other : plan.facts().openPlans) {
        const PlanUse used = plan.facts().usedByOpen.value(other.id);
        const auto terms = orderTerms(other.record, *plan.security, used, [] { return Result<double>(0.0); });
        if (terms && !terms->isBuy && !terms->isAmount)
            sum += qMax(0.0, terms->share.total - terms->share.used);
    }
    return sum;
}

Verdict holdingsCoverAllPlans(const AdvisedPlan& plan)
{
    if (!plan.terms || plan.terms->isBuy || plan.terms->isAmount)
        return notApplicable();
    const double all = plan.terms->share.total - plan.terms->share.used + soldByOthers(plan);
    const double held = plan.sellableNext();
    if (all <= held)
        return passed();
    return doubtful(Advisor::tr("与其他计划共卖%1，可卖只有%2").arg(plan.withUnit(all), plan.withUnit(held)));
}

Verdict planEndsInTime(const AdvisedPlan& plan)
{
    if (!plan.forecast || plan.forecast->total <= 0)
        return notApplicable();
    return ForecastTexts::isInTime(plan) ? passed() : doubtful(ForecastTexts::headline(plan));
}

} // namespace

const QVector<Rule>& softRules()
{
    static const QVector<Rule> rules{
        { "le_targetTotalNum", QT_TRANSLATE_NOOP("Advisor", "目标的零股"), targetIsWholeLots },
        { "le_entrustMaxNum", QT_TRANSLATE_NOOP("Advisor", "每日的零股"), dailyQuantityIsWholeLots },
        { "lineEdit_price1", QT_TRANSLATE_NOOP("Advisor", "价格可用"), formulaGivesPrice },
        { "lineEdit_price1", QT_TRANSLATE_NOOP("Advisor", "最小价位"), priceIsOnTick },
        { "lineEdit_price1", QT_TRANSLATE_NOOP("Advisor", "涨跌停"), priceIsWithinBand },
        { "le_targetTotalNum", QT_TRANSLATE_NOOP("Advisor", "最小买入数量"), purchaseIsLargeEnough },
        { "date_effectivePeriod_Multi", QT_TRANSLATE_NOOP("Advisor", "规则变更"), rulesStayTheSame },
        { "le_targetTotalNum", QT_TRANSLATE_NOOP("Advisor", "通常规模"), sizeIsUsual },
        { "combx_tradeSide", QT_TRANSLATE_NOOP("Advisor", "反向计划"), noPlanIsOpposite },
        { "le_targetTotalNum", QT_TRANSLATE_NOOP("Advisor", "合计持仓"), holdingsCoverAllPlans },
        { "date_effectivePeriod_Multi", QT_TRANSLATE_NOOP("Advisor", "按期完成"), planEndsInTime },
    };
    return rules;
}

} // namespace RuleList
