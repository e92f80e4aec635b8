#include "AlgoTradeLogicNew.h"
#include "Algo_Fields.h"
#include "AlgorithmParameters.h"
#include "AutoParamSetting.h"
#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "ComboItems.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "OrloBusinessDataInterface.h"
#include "OrloConstants.h"
#include "OrloWidget.h"
#include "Orlo_Values.h"
#include "ParamListWidget_single.h"
#include "PlanQuantities.h"
#include "PlanVocabulary.h"
#include "QuantityRounding.h"
#include "SpecialCharacters.h"
#include "Today.h"
#include "ui_AutoParamSetting.h"

#include <QDebug>
#include <QLocale>
#include <QPointer>

#include <functional>

namespace {

namespace Content = Algo_Fields::AlgoInstContentInfo;

/// The result of a rule: passed, a warning that stops the check, or a question that the trader can accept.
struct Verdict {
    enum Kind { Passed, Warning, Question };
    Kind kind = Passed;
    QString text = QString();
};

Verdict passed()
{
    return {};
}

Verdict warning(const QString& text)
{
    return { Verdict::Warning, text };
}

Verdict question(const QString& text)
{
    return { Verdict::Question, text };
}

/// The input of the rules. Rules do not change it.
struct CheckedPlan {
    const Ui::AutoParamSetting& ui;
    const QString& planId;
    const QMap<QString, tagUserAccountInfo>& accounts;
    const QStringList& unsignedClients;
    const ParamListWidget_single* algorithm;
    std::function<bool(const QString& text, QString& found)> containsSpecialChar;

    QString planType() const { return currentCode(ui.combx_planType); }
    bool reducesHoldings() const { return planType() == AutoPlanTemplate::ReduceHoldings; }
    bool countsQuantity() const
    {
        return currentCode(ui.combx_instructionTargetType) == InstructionTargetType::QtyOrder;
    }
    QString side() const { return currentCode(ui.combx_tradeSide); }
    QString tradingAccount() const { return ui.combx_fundAccount->GetCurTradingAccount(); }
    QString symbol() const { return ui.le_symbol->getSymbol(); }
    bool runsAlgorithm() const { return currentCode(ui.combx_instructionMode) == AutoPlanInstMode::AlgoTradeReview; }
    bool isEdited() const { return !planId.isEmpty(); }
};

using Rule = Verdict (*)(const CheckedPlan&);

Verdict requiredField(const QLabel* caption)
{
    return warning(AutoParamSetting::tr("%1必填，请重新编辑！").arg(caption->text()));
}

Verdict riskDisclosureIsSigned(const CheckedPlan& plan)
{
    if (!plan.reducesHoldings())
        return passed();
    const QString clientNo = plan.accounts.value(plan.tradingAccount()).clientNo;
    if (!plan.unsignedClients.contains(clientNo))
        return passed();
    return warning(AutoParamSetting::tr("当前账号未签署风险揭示，请关闭智能规划菜单后重新创建减持计划进行签署。"));
}

Verdict accountIsChosen(const CheckedPlan& plan)
{
    return plan.tradingAccount().isEmpty() ? warning(AutoParamSetting::tr("未绑定资金帐号！")) : passed();
}

Verdict instructionTypeIsChosen(const CheckedPlan& plan)
{
    return currentCode(plan.ui.combx_instructionType).isEmpty() ? requiredField(plan.ui.la_instructType) : passed();
}

Verdict securityIsChosen(const CheckedPlan& plan)
{
    return plan.symbol().isEmpty() ? warning(AutoParamSetting::tr("未输入代码！")) : passed();
}

Verdict targetIsGiven(const CheckedPlan& plan)
{
    const OrloDecimalLineEdit* const target = plan.ui.le_targetTotalNum;
    if (plan.reducesHoldings() || !target->isVisible() || !target->GetStrValue().isEmpty())
        return passed();
    return warning(AutoParamSetting::tr("未输入目标总量！"));
}

/// Returns the display factor for a rule that divides by it. If it is 0, logs a warning; the caller skips the rule.
int factorForRule(const QString& symbol)
{
    const int factor = OrloBusinessDataInterface::GetDispFactorBySymbol(symbol);
    if (factor == 0)
        qWarning() << "AutoParamSetting::checkParam display factor 0, rule skipped for" << symbol;
    return factor;
}

// A warning although the text is a question: the exchange rejects odd lots of these securities, so the plan cannot
// continue.
Verdict targetIsWholeLots(const CheckedPlan& plan)
{
    if (plan.reducesHoldings() || !plan.countsQuantity())
        return passed();
    const qint64 quantity = roundToWhole(plan.ui.le_targetTotalNum->value());
    const int factor = factorForRule(plan.symbol());
    if (factor == 0 || (quantity >= factor && quantity % factor == 0))
        return passed();
    return warning(AutoParamSetting::tr("沪市债券目标总量需为%1的正整数倍，是否继续？").arg(factor));
}

// The exclamation mark is ASCII, unlike in the other rules: traders know the text in this form.
Verdict dailyQuantityIsGiven(const CheckedPlan& plan)
{
    if (plan.planType() != AutoPlanTemplate::SameElements || !isZero(plan.ui.le_entrustMaxNum->value()))
        return passed();
    return warning(AutoParamSetting::tr("未输入每日计划量!"));
}

// Zero passes: without a daily quantity only the target limits the day.
Verdict dailyQuantityIsWholeLots(const CheckedPlan& plan)
{
    if (!plan.ui.le_entrustMaxNum->isVisible() || !plan.countsQuantity())
        return passed();
    const qint64 quantity = roundToWhole(plan.ui.le_entrustMaxNum->value());
    const int factor = factorForRule(plan.symbol());
    if (factor == 0 || quantity % factor == 0)
        return passed();
    return warning(AutoParamSetting::tr("沪市债券%1需为%2的正整数倍，是否继续？")
                       .arg(plan.ui.la_entrustMaxNum->text(), QString::number(factor)));
}

Verdict reductionRatioIsGiven(const CheckedPlan& plan)
{
    if (!plan.reducesHoldings() || !isZero(plan.ui.le_reduceHRatio->GetStrValue().toDouble()))
        return passed();
    return warning(AutoParamSetting::tr("未输入减持占比！"));
}

Verdict formulaIsGiven(const QLineEdit* input, const QLabel* caption)
{
    if (!input->text().isEmpty())
        return passed();
    return warning(AutoParamSetting::tr("%1公式必填，请重新编辑！").arg(caption->text()));
}

Verdict formulaIsClean(const CheckedPlan& plan, const QLineEdit* input, const QLabel* caption)
{
    QString found;
    if (!plan.containsSpecialChar(input->text(), found))
        return passed();
    return warning(AutoParamSetting::tr("%1公式包含特殊字符%2，请重新编辑！").arg(caption->text(), found));
}

Verdict price1IsGiven(const CheckedPlan& plan)
{
    return formulaIsGiven(plan.ui.lineEdit_price1, plan.ui.label_price1);
}

Verdict price1IsClean(const CheckedPlan& plan)
{
    return formulaIsClean(plan, plan.ui.lineEdit_price1, plan.ui.label_price1);
}

Verdict price2IsGiven(const CheckedPlan& plan)
{
    if (!plan.ui.lineEdit_price2->isVisible())
        return passed();
    return formulaIsGiven(plan.ui.lineEdit_price2, plan.ui.label_price2);
}

Verdict price2IsClean(const CheckedPlan& plan)
{
    if (!plan.ui.lineEdit_price2->isVisible())
        return passed();
    return formulaIsClean(plan, plan.ui.lineEdit_price2, plan.ui.label_price2);
}

Verdict executorIsChosen(const CheckedPlan& plan)
{
    if (!plan.reducesHoldings() || plan.ui.combx_assignTo->currentIndex() != -1)
        return passed();
    return requiredField(plan.ui.la_assignTo);
}

Verdict instructionModeIsChosen(const CheckedPlan& plan)
{
    return currentCode(plan.ui.combx_instructionMode).isEmpty() ? requiredField(plan.ui.la_orderMode) : passed();
}

Verdict algorithmIsSet(const CheckedPlan& plan)
{
    if (!plan.runsAlgorithm() || (plan.algorithm && plan.algorithm->HasParams()))
        return passed();
    return warning(AutoParamSetting::tr("未设置算法参数！"));
}

Verdict algorithmFitsPlan(const CheckedPlan& plan)
{
    if (!plan.runsAlgorithm())
        return passed();
    const FieldMap parameters = plan.algorithm->GetParamMap();
    if (parameters.value(Content::TradingAccount).toString() != plan.tradingAccount())
        return warning(AutoParamSetting::tr("算法参数中的交易账号与计划参数不一致！"));
    // A side other than buy and sell has no algorithm code to compare with.
    const QString side = AlgorithmParameters::algorithmSide(plan.side());
    if (!side.isEmpty() && parameters.value(Content::OrderSide).toString() != side)
        return warning(AutoParamSetting::tr("算法参数中的交易方向与计划参数不一致！"));
    return passed();
}

Verdict algorithmSupportsPriceMode(const CheckedPlan& plan)
{
    if (!plan.runsAlgorithm())
        return passed();
    const QString name = plan.algorithm->GetStrategyName();
    if (currentCode(plan.ui.combx_priceMode) != AutoPlanPriceModel::NoLimit
        || !AutoPlanAlgo::NoUnlimitedPriceList.contains(name))
        return passed();
    const QString alias = AlgoTradeLogicNew::GetInstance()->GetStrategy(name).alias;
    return warning(AutoParamSetting::tr("%1算法不支持不限价，请重新设置！").arg(alias));
}

Verdict targetCoversUsed(const CheckedPlan& plan)
{
    if (!plan.isEdited())
        return passed();
    // The plan passes if the sum is not a number.
    if (plan.ui.le_targetTotalNum->value() < usedQuantity(plan.planId) - NumberTolerance)
        return warning(AutoParamSetting::tr("目标数量不得小于该计划已成交和在下达总和，请重新输入！"));
    return passed();
}

Verdict startedPlanKeepsBeginDate(const CheckedPlan& plan)
{
    if (!plan.isEdited())
        return passed();
    const QDate day = today();
    const QDate begin = QLocale::c().toDate(
        AutoPlanLogic::instance().GetPlanInfo(plan.planId).value(AutoPlanField::BaseField::beginDate).toString(),
        OrloConstants::DateTimeFormatString::STD_DATE_FORMAT);
    // An invalid date is less than every other date: a plan without a readable beginning counts as started, as in
    // loading.
    if (begin > day)
        return passed();
    const OrloDateEdit* const range = plan.ui.date_effectivePeriod_Multi;
    const OrloDateEdit* const single = plan.ui.date_effectivePeriod_Single;
    const bool beginMoved = range->isVisible() && range->GetStartDate() != begin;
    if (!beginMoved && range->isVisible() && range->GetEndDate() < day)
        return warning(AutoParamSetting::tr("计划已开始执行，结束日期不得早于当日！"));
    if (beginMoved || (single->isVisible() && single->GetDate() != begin))
        return warning(AutoParamSetting::tr("计划已开始执行，初始日期不支持修改！"));
    return passed();
}

// Truncates without tolerance, unlike the lot rules: a step is only a market convention, which the trader may ignore,
// and the rule compares whole units.
Verdict fitsStep(
    const CheckedPlan& plan, const QLabel* stepHint, const OrloDecimalLineEdit* field, const QLabel* caption)
{
    if (!stepHint->isVisible())
        return passed();
    const int step = OrloBusinessDataInterface::GetQtyStepBySymbol(plan.symbol());
    if (step == 0) {
        qWarning() << "AutoParamSetting::checkParam quantity step 0, rule skipped for" << plan.symbol();
        return passed();
    }
    if (truncateToInt32(field->value()) % step == 0)
        return passed();
    return question(
        AutoParamSetting::tr("%1需等于【%2】的整数倍，是否继续？").arg(caption->text(), QString::number(step)));
}

Verdict targetFitsStep(const CheckedPlan& plan)
{
    return fitsStep(plan, plan.ui.label_targetQtyStep, plan.ui.le_targetTotalNum, plan.ui.la_targetTotalNum);
}

Verdict dailyQuantityFitsStep(const CheckedPlan& plan)
{
    return fitsStep(plan, plan.ui.label_maxEntrustQtyStep, plan.ui.le_entrustMaxNum, plan.ui.la_entrustMaxNum);
}

// Margin plans are exempt: they can sell borrowed shares, which are not part of the holdings.
Verdict holdingsCoverTarget(const CheckedPlan& plan)
{
    if (!plan.countsQuantity() || plan.side() != Kelvo_Values::OrderSide::sell
        || currentCode(plan.ui.combx_instructionType) == AutoPlanInstructionType::Credit)
        return passed();
    const OrloDecimalLineEdit* const target = plan.ui.le_targetTotalNum;
    const double available = availableHoldings(plan.tradingAccount(), plan.symbol(), target->GetStrValue());
    // Negated, so that the rule also passes if the holdings are not a number.
    if (!(available < target->value()))
        return passed();
    const QString action = plan.isEdited() ? AutoParamSetting::tr("修改") : AutoParamSetting::tr("创建");
    return question(AutoParamSetting::tr("当前账号【%1】的持仓可用小于目标总量，是否继续%2计划？继续请点击【确认】，"
                                         "否则点击【取消】")
                        .arg(plan.ui.combx_fundAccount->GetCurFundAccount(), action));
}

// The side is compared with the security service's code for buy, because the flag belongs to that service; clients use
// the same code in both families. Edited plans get the text about creating: the question concerns the security only.
Verdict securityIsNormal(const CheckedPlan& plan)
{
    if (plan.side() != Orlo_Values::OrderSide::buy)
        return passed();
    QString description;
    if (OrloBusinessDataInterface::GetSymbolStType(plan.symbol(), description) == Orlo_Values::StFlag::Normal)
        return passed();
    return question(description + AutoParamSetting::tr("。是否继续创建？"));
}

// Checked in this order; the first failed rule shows its message.
constexpr Rule Rules[] = {
    riskDisclosureIsSigned,
    accountIsChosen,
    instructionTypeIsChosen,
    securityIsChosen,
    targetIsGiven,
    targetIsWholeLots,
    dailyQuantityIsGiven,
    dailyQuantityIsWholeLots,
    reductionRatioIsGiven,
    price1IsGiven,
    price1IsClean,
    price2IsGiven,
    price2IsClean,
    executorIsChosen,
    instructionModeIsChosen,
    algorithmIsSet,
    algorithmFitsPlan,
    algorithmSupportsPriceMode,
    targetCoversUsed,
    startedPlanKeepsBeginDate,
    targetFitsStep,
    dailyQuantityFitsStep,
    holdingsCoverTarget,
    securityIsNormal,
};

/// Shows the message of a rule. Returns true if the check continues; false also if the editor was deleted while the box
/// was open.
bool showVerdict(const Verdict& verdict, QWidget* editor)
{
    if (verdict.kind == Verdict::Passed)
        return true;
    if (verdict.kind == Verdict::Warning) {
        OrloWidget::ShowWarningMsgBox(verdict.text, editor);
        return false;
    }
    const QPointer<QWidget> alive(editor);
    const bool accepted = OrloWidget::ShowQuestionMsgBox(verdict.text, editor, 0) != 0;
    return accepted && alive;
}

} // namespace

bool AutoParamSetting::checkParam()
{
    const bool reduces = currentCode(ui->combx_planType) == AutoPlanTemplate::ReduceHoldings;
    const QStringList unsignedClients = reduces ? GetUnsignedClientNoList() : QStringList();
    const auto containsSpecialChar = [this](const QString& text, QString& found) {
        return isContainsSpecialChar(text, found);
    };
    const CheckedPlan plan{ *ui, m_planId, m_accountInfoMap, unsignedClients, m_algoParamWidget, containsSpecialChar };
    for (const Rule rule : Rules) {
        if (!showVerdict(rule(plan), this))
            return false;
    }
    return true;
}

bool AutoParamSetting::isContainsSpecialChar(const QString& text, QString& found)
{
    return ::isContainsSpecialChar(text, found);
}
