// The form's own rules, computed from what it shows. The form itself only says which is broken first.
#include "Algo_Values.h"
#include "AutoPlanField.h"
#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "PlanFacts.h"
#include "PlanStrategies.h"
#include "PlanTexts.h"
#include "RuleParts.h"

#include <QRegularExpression>

#include <cmath>

using namespace PlanCodes;

namespace RuleList {
namespace {

constexpr double Tolerance = 1e-10;

bool isZero(double number)
{
    return std::abs(number) < Tolerance;
}

bool isEdit(const AdvisedPlan& plan)
{
    return plan.hasFacts() && !plan.facts().edited.id.isEmpty();
}

Verdict requires(bool isGiven)
{
    return isGiven ? passed() : failed(Advisor::tr("必填"));
}

Verdict riskDisclosureIsSigned(const AdvisedPlan& plan)
{
    if (!plan.form.isReduction())
        return notApplicable();
    if (!plan.hasFacts())
        return open(plan);
    const bool isSigned = !plan.facts().unsignedClients.contains(plan.account->clientNo);
    return isSigned ? passed() : failed(Advisor::tr("客户%1尚未签署").arg(plan.account->clientNo));
}

Verdict accountIsChosen(const AdvisedPlan& plan)
{
    return requires(!plan.form.account.isEmpty());
}

Verdict instructionTypeIsChosen(const AdvisedPlan& plan)
{
    return requires(!plan.form.instructionType.isEmpty());
}

Verdict securityIsChosen(const AdvisedPlan& plan)
{
    return requires(!plan.form.symbol.isEmpty());
}

Verdict targetIsGiven(const AdvisedPlan& plan)
{
    return plan.form.isReduction() ? notApplicable() : requires(!plan.form.target.isEmpty());
}

Verdict isMultiple(const AdvisedPlan& plan, double value, bool mayBeZero)
{
    const qint64 quantity = qRound64(value);
    const int factor = plan.security->displayFactor;
    const bool fits = quantity % factor == 0 && (mayBeZero || quantity >= factor);
    return fits ? passed() : failed(Advisor::tr("应为%1的正整数倍").arg(factor));
}

Verdict targetIsMultiple(const AdvisedPlan& plan)
{
    if (plan.form.isReduction() || plan.form.isAmount() || !plan.security)
        return notApplicable();
    return isMultiple(plan, plan.form.targetValue(), false);
}

Verdict dailyQuantityIsGiven(const AdvisedPlan& plan)
{
    if (plan.form.planType != PlanType::SameElements)
        return notApplicable();
    return requires(!isZero(plan.form.perDayValue()));
}

Verdict dailyQuantityIsMultiple(const AdvisedPlan& plan)
{
    if (!plan.form.hasPerDay || plan.form.isAmount() || !plan.security)
        return notApplicable();
    return isMultiple(plan, plan.form.perDayValue(), true);
}

Verdict ratioIsGiven(const AdvisedPlan& plan)
{
    return plan.form.isReduction() ? requires(!isZero(plan.form.ratio.toDouble())) : notApplicable();
}

Verdict isClean(const QString& formula)
{
    static const QRegularExpression special(QStringLiteral("[`~!@#$&=|{}':\\[\\]<>?;\uFFFD]|%+\\d"));
    const QRegularExpressionMatch match = special.match(formula);
    return match.hasMatch() ? failed(Advisor::tr("含有特殊字符%1").arg(match.captured())) : passed();
}

Verdict price1IsGiven(const AdvisedPlan& plan)
{
    return requires(!plan.form.price1.isEmpty());
}

Verdict price1IsClean(const AdvisedPlan& plan)
{
    return isClean(plan.form.price1);
}

Verdict price2IsGiven(const AdvisedPlan& plan)
{
    return plan.form.hasPrice2 ? requires(!plan.form.price2.isEmpty()) : notApplicable();
}

Verdict price2IsClean(const AdvisedPlan& plan)
{
    return plan.form.hasPrice2 ? isClean(plan.form.price2) : notApplicable();
}

Verdict executorIsChosen(const AdvisedPlan& plan)
{
    return plan.form.isReduction() ? requires(!plan.form.assignee.isEmpty()) : notApplicable();
}

Verdict instructionModeIsChosen(const AdvisedPlan& plan)
{
    return requires(!plan.form.instructionMode.isEmpty());
}

Verdict algorithmIsSet(const AdvisedPlan& plan)
{
    return plan.form.runsAlgorithm() ? requires(!plan.form.algorithm.isEmpty()) : notApplicable();
}

Verdict algorithmFitsPlan(const AdvisedPlan& plan)
{
    if (!plan.form.runsAlgorithm() || plan.form.algorithm.isEmpty())
        return notApplicable();
    using namespace Algo_Values::AlgoOrderSide;
    if (plan.form.algorithmAccount != plan.form.account)
        return failed(Advisor::tr("算法的交易账号与计划不一致"));
    const bool fits = plan.form.algorithmSide == (plan.form.isBuy() ? BuyValue : SellValue);
    return fits ? passed() : failed(Advisor::tr("算法的交易方向与计划不一致"));
}

Verdict algorithmSupportsPriceMode(const AdvisedPlan& plan)
{
    if (!plan.form.runsAlgorithm() || plan.form.algorithm.isEmpty())
        return notApplicable();
    const bool fits = plan.form.priceMode != PriceModel::NoLimit || !PlanStrategies::needsLimit(plan.form.algorithm);
    return fits ? passed() : failed(Advisor::tr("该算法不支持不限价"));
}

Verdict targetCoversUsed(const AdvisedPlan& plan)
{
    if (!isEdit(plan))
        return notApplicable();
    const double used = PlanFacts::used(plan.facts().edited, plan.facts().used);
    const bool covers = plan.form.targetValue() >= used - Tolerance;
    return covers ? passed()
                  : failed(Advisor::tr("小于已成交和在下达的%1").arg(plan.withUnit(used, plan.form.isAmount())));
}

Verdict startedPlanKeepsBegin(const AdvisedPlan& plan)
{
    if (!isEdit(plan))
        return notApplicable();
    const QString stored = plan.facts().edited.record.value(AutoPlanField::BaseField::beginDate).toString();
    const QDate begin = PlanTexts::date(stored);
    if (begin > plan.world.today)
        return notApplicable();
    if (plan.form.begin != begin)
        return failed(Advisor::tr("计划已开始，开始日期应为%1").arg(stored));
    const bool hasEnded = !plan.form.isReduction() && plan.form.end < plan.world.today;
    return hasEnded ? failed(Advisor::tr("结束日期早于今日")) : passed();
}

Verdict fitsStep(const AdvisedPlan& plan, double value)
{
    if (!plan.form.hasSteps || !plan.security)
        return notApplicable();
    const int step = plan.security->quantityStep;
    return static_cast<qint64>(value) % step == 0 ? passed() : asked(Advisor::tr("不是%1的整数倍").arg(step));
}

Verdict targetFitsStep(const AdvisedPlan& plan)
{
    return fitsStep(plan, plan.form.targetValue());
}

Verdict dailyQuantityFitsStep(const AdvisedPlan& plan)
{
    return plan.form.hasPerDay ? fitsStep(plan, plan.form.perDayValue()) : notApplicable();
}

Verdict holdingsCoverTarget(const AdvisedPlan& plan)
{
    const bool applies =
        !plan.form.isAmount() && !plan.form.isBuy() && plan.form.instructionType != InstructionType::Credit;
    if (!applies || !plan.security)
        return notApplicable();
    if (!plan.hasFacts())
        return open(plan);
    const bool covers = plan.sellable() >= plan.form.targetValue();
    return covers ? passed() : asked(Advisor::tr("可卖只有%1").arg(plan.withUnit(plan.sellable())));
}

Verdict securityIsNormal(const AdvisedPlan& plan)
{
    if (!plan.security || !plan.form.isBuy())
        return notApplicable();
    return plan.security->stFlag == Orlo_Values::StFlag::Normal ? passed() : asked(plan.security->stText);
}

/// A text that the window refuses counts as no value.
Verdict isUnderstood(const AdvisedPlan& plan, const char* field)
{
    for (const RefusedInput& input : plan.form.refused) {
        if (input.field == QLatin1String(field))
            return failed(input.reason);
    }
    return passed();
}

Verdict isDate(const AdvisedPlan& plan, const char* field, const QDate& date)
{
    const Verdict verdict = isUnderstood(plan, field);
    return verdict.kind == Verdict::Passed ? requires(date.isValid()) : verdict;
}

Verdict targetIsUnderstood(const AdvisedPlan& plan)
{
    return isUnderstood(plan, "le_targetTotalNum");
}

Verdict dailyQuantityIsUnderstood(const AdvisedPlan& plan)
{
    return plan.form.hasPerDay ? isUnderstood(plan, "le_entrustMaxNum") : notApplicable();
}

Verdict ratioIsUnderstood(const AdvisedPlan& plan)
{
    return plan.form.isReduction() ? isUnderstood(plan, "le_reduceHRatio") : notApplicable();
}

Verdict beginIsDate(const AdvisedPlan& plan)
{
    return plan.form.isReduction() ? notApplicable() : isDate(plan, "le_start", plan.form.begin);
}

Verdict endIsDate(const AdvisedPlan& plan)
{
    return plan.form.isReduction() ? notApplicable() : isDate(plan, "le_end", plan.form.end);
}

Verdict singleDateIsDate(const AdvisedPlan& plan)
{
    return plan.form.isReduction() ? isDate(plan, "le_date", plan.form.begin) : notApplicable();
}

} // namespace

const QVector<Rule>& formRules()
{
    static const QVector<Rule> rules{
        { "combx_planType", QT_TRANSLATE_NOOP("Advisor", "风险揭示"), riskDisclosureIsSigned },
        { "combx_fundAccount", QT_TRANSLATE_NOOP("Advisor", "账户"), accountIsChosen },
        { "combx_instructionType", QT_TRANSLATE_NOOP("Advisor", "指令类型"), instructionTypeIsChosen },
        { "le_symbol", QT_TRANSLATE_NOOP("Advisor", "证券代码"), securityIsChosen },
        { "le_targetTotalNum", QT_TRANSLATE_NOOP("Advisor", "目标总量"), targetIsGiven },
        { "le_targetTotalNum", QT_TRANSLATE_NOOP("Advisor", "目标的倍数"), targetIsMultiple },
        { "le_entrustMaxNum", QT_TRANSLATE_NOOP("Advisor", "每日计划量"), dailyQuantityIsGiven },
        { "le_entrustMaxNum", QT_TRANSLATE_NOOP("Advisor", "每日的倍数"), dailyQuantityIsMultiple },
        { "le_reduceHRatio", QT_TRANSLATE_NOOP("Advisor", "减持占比"), ratioIsGiven },
        { "lineEdit_price1", QT_TRANSLATE_NOOP("Advisor", "价格"), price1IsGiven },
        { "lineEdit_price1", QT_TRANSLATE_NOOP("Advisor", "价格的字符"), price1IsClean },
        { "lineEdit_price2", QT_TRANSLATE_NOOP("Advisor", "价格2"), price2IsGiven },
        { "lineEdit_price2", QT_TRANSLATE_NOOP("Advisor", "价格2的字符"), price2IsClean },
        { "combx_assignTo", QT_TRANSLATE_NOOP("Advisor", "执行人"), executorIsChosen },
        { "combx_instructionMode", QT_TRANSLATE_NOOP("Advisor", "下单模式"), instructionModeIsChosen },
        { "btn_algoParamSetting", QT_TRANSLATE_NOOP("Advisor", "算法参数"), algorithmIsSet },
        { "btn_algoParamSetting", QT_TRANSLATE_NOOP("Advisor", "算法与计划"), algorithmFitsPlan },
        { "combx_priceMode", QT_TRANSLATE_NOOP("Advisor", "算法与价格"), algorithmSupportsPriceMode },
        { "le_targetTotalNum", QT_TRANSLATE_NOOP("Advisor", "目标与已用"), targetCoversUsed },
        { "date_effectivePeriod_Multi", QT_TRANSLATE_NOOP("Advisor", "已开始的计划"), startedPlanKeepsBegin },
        { "le_targetTotalNum", QT_TRANSLATE_NOOP("Advisor", "目标的每手"), targetFitsStep },
        { "le_entrustMaxNum", QT_TRANSLATE_NOOP("Advisor", "每日的每手"), dailyQuantityFitsStep },
        { "le_targetTotalNum", QT_TRANSLATE_NOOP("Advisor", "持仓可用"), holdingsCoverTarget },
        { "le_symbol", QT_TRANSLATE_NOOP("Advisor", "证券状态"), securityIsNormal },
        // The window checks these after the editor's rules.
        { "le_targetTotalNum", QT_TRANSLATE_NOOP("Advisor", "目标的输入"), targetIsUnderstood },
        { "le_entrustMaxNum", QT_TRANSLATE_NOOP("Advisor", "每日的输入"), dailyQuantityIsUnderstood },
        { "le_reduceHRatio", QT_TRANSLATE_NOOP("Advisor", "占比的输入"), ratioIsUnderstood },
        { "le_start", QT_TRANSLATE_NOOP("Advisor", "开始日期"), beginIsDate },
        { "le_end", QT_TRANSLATE_NOOP("Advisor", "结束日期"), endIsDate },
        { "le_date", QT_TRANSLATE_NOOP("Advisor", "单个日期"), singleDateIsDate },
    };
    return rules;
}

} // namespace RuleList
