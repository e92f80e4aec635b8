#include "AutoParamSetting.h"

#include "AlgoTradeLogicNew.h"
#include "Algo_Fields.h"
#include "AlgorithmParameters.h"
#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "BusinessDataInterface.h"
#include "CBusinessDataBase.h"
#include "ComboItems.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloBusinessDataInterface.h"
#include "OrloConstants.h"
#include "OrloWidget.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "ParamListWidget_single.h"
#include "PlanVocabulary.h"
#include "QuantityRounding.h"
#include "SpecialCharacters.h"
#include "Today.h"
#include "ui_AutoParamSetting.h"
#include <QDebug>
#include <QLocale>
#include <QLoggingCategory>
#include <QPointer>
#include <functional>

namespace {

namespace Content = Algo_Fields::AlgoInstContentInfo;

using FieldMap = QMap<QString, QVariant>;

const QString InstructionHasEnded = QStringLiteral("1");

/// What a rule says of the plan: nothing, a warning that stops it, or a question that the trader may accept.
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

/// What the rules look at. They change nothing of it.
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

/// A display factor for a rule that divides by it; 0 skips the rule and is logged.
int factorForRule(const QString& symbol)
{
    const int factor = OrloBusinessDataInterface::GetDispFactorBySymbol(symbol);
    if (factor == 0)
        qWarning() << "AutoParamSetting::checkParam display factor 0, rule skipped for" << symbol;
    return factor;
}

// The text asks, yet the exchange takes no odd lots of these: there is nothing to go on with, so it stops.
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

// The exclamation mark is the ASCII one, unlike in the other rules: the text is known to traders as it is.
Verdict dailyQuantityIsGiven(const CheckedPlan& plan)
{
    if (plan.planType() != AutoPlanTemplate::SameElements || !isZero(plan.ui.le_entrustMaxNum->value()))
        return passed();
    return warning(AutoParamSetting::tr("未输入每日计划量!"));
}

// Zero passes: without a daily quantity only the target bounds the day.
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
    // A side that is neither buy nor sell has no algorithm code to compare with.
    const QString side = AlgorithmParameters::algorithmSide(plan.side());
    if (!side.isEmpty() && parameters.value(Content::OrderSide).toString() != side)
        return warning(AutoParamSetting::tr("算法参数中的交易方向与计划参数不一致！"));
    return passed();
}

Verdict algorithmTakesPriceMode(const CheckedPlan& plan)
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

double numberOf(const FieldMap& fields, const QString& key)
{
    const auto field = fields.constFind(key);
    return field == fields.cend() ? 0 : field->toDouble();
}

bool holdsText(const FieldMap& fields, const QString& key, const QString& text)
{
    const auto field = fields.constFind(key);
    return field != fields.cend() && field->toString() == text;
}

/// What one instruction has used of the plan: what was filled once it has ended, what was issued while it runs. A plan
/// can have thousands of instructions, so what only the log would show is not worked out when nobody reads it.
double usedByInstruction(const QString& planId, const QString& instructionId, const FieldMap& fields, double sumBefore)
{
    const bool ended = holdsText(fields, AutoPlanFieldId::InstructionEnded, InstructionHasEnded);
    const bool byAmount = holdsText(fields, AutoPlanFieldId::TargetType, InstructionTargetType::AmountOrder);
    const QString& filled = byAmount ? Orlo_Fields::Security::cumAmount : AutoPlanFieldId::FilledQty;
    const QString& issued = byAmount ? AutoPlanFieldId::IssuedAmount : AutoPlanFieldId::IssuedQty;
    const double sum = sumBefore + numberOf(fields, ended ? filled : issued);
    if (QLoggingCategory::defaultCategory()->isDebugEnabled())
        qDebug() << "AutoParamSetting::checkParam" << planId << instructionId << ended << numberOf(fields, filled)
                 << numberOf(fields, issued) << sum;
    return sum;
}

Verdict targetCoversWhatIsUsed(const CheckedPlan& plan)
{
    if (!plan.isEdited())
        return passed();
    const QMap<QString, FieldMap> instructions = AutoPlanLogic::instance().GetPlanInstruction(plan.planId);
    double sum = 0;
    for (auto it = instructions.cbegin(); it != instructions.cend(); ++it)
        sum = usedByInstruction(plan.planId, it.key(), it.value(), sum);
    // A sum that is not a number is not above the target: the plan passes.
    if (plan.ui.le_targetTotalNum->value() < sum - NumberTolerance)
        return warning(AutoParamSetting::tr("目标数量不得小于该计划已成交和在下达总和，请重新输入！"));
    return passed();
}

Verdict startedPlanKeepsItsBegin(const CheckedPlan& plan)
{
    if (!plan.isEdited())
        return passed();
    const QDate day = today();
    const QDate begin = QLocale::c().toDate(
        AutoPlanLogic::instance().GetPlanInfo(plan.planId).value(AutoPlanField::BaseField::beginDate).toString(),
        OrloConstants::DateTimeFormatString::STD_DATE_FORMAT);
    // A begin that cannot be read sorts before every day: such a plan counts as started, as when it is loaded.
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

// Unlike the lot rules this cuts the decimals off without any tolerance: a step is a habit of the market, which the
// trader may break, and only whole units are counted against it.
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

double availableHoldings(const QString& tradingAccount, const QString& symbol, const QString& targetText)
{
    const int factor =
        usableDisplayFactor(OrloBusinessDataInterface::GetDispFactorBySymbol(symbol), "AutoParamSetting::checkParam");
    const tagUserAccountInfo account =
        CBusinessDataBase::GetInstance()->GetAccountDetailsByTradinngAccount(tradingAccount);
    const QString exchange = OrloBusinessDataInterface::GetFirstSecurityExchangeBySymbol(symbol);
    const QString securityAccount =
        OrloBusinessDataInterface::GetCurrentSecurityAccountByTradingAndExchange(tradingAccount, exchange);
    const QList<FieldMap> positions = BusinessDataInterface::GetPositionListByAccount(
        account, securityAccount, symbol, QString(), QString(), QString(), QString());
    double available = 0;
    for (const FieldMap& position : positions)
        available += position.value(Kelvo_Fields::Security::tradeableQty).toDouble() * factor;
    qInfo() << "AutoParamSetting::checkParam" << symbol << securityAccount << available << targetText;
    return available;
}

// Margin plans are exempt: they may sell borrowed shares, which are not among the holdings.
Verdict holdingsCoverTarget(const CheckedPlan& plan)
{
    if (!plan.countsQuantity() || plan.side() != Kelvo_Values::OrderSide::sell
        || currentCode(plan.ui.combx_instructionType) == AutoPlanInstructionType::Credit)
        return passed();
    const OrloDecimalLineEdit* const target = plan.ui.le_targetTotalNum;
    const double available = availableHoldings(plan.tradingAccount(), plan.symbol(), target->GetStrValue());
    // Negated, because holdings that are not a number are not below the target: nothing is asked.
    if (!(available < target->value()))
        return passed();
    const QString action = plan.isEdited() ? AutoParamSetting::tr("修改") : AutoParamSetting::tr("创建");
    return question(AutoParamSetting::tr("当前账号【%1】的持仓可用小于目标总量，是否继续%2计划？继续请点击【确认】，"
                                         "否则点击【取消】")
                        .arg(plan.ui.combx_fundAccount->GetCurFundAccount(), action));
}

// The flag and the side belong to the same family of codes, which is not that of the side's box; a client gives buy the
// same code in both. An edit is asked with the words of a new plan: only the security is in question.
Verdict securityIsNormal(const CheckedPlan& plan)
{
    if (plan.side() != Orlo_Values::OrderSide::buy)
        return passed();
    QString description;
    if (OrloBusinessDataInterface::GetSymbolStType(plan.symbol(), description) == Orlo_Values::StFlag::Normal)
        return passed();
    return question(description + AutoParamSetting::tr("。是否继续创建？"));
}

// From first to last; the first that fails speaks.
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
    algorithmTakesPriceMode,
    targetCoversWhatIsUsed,
    startedPlanKeepsItsBegin,
    targetFitsStep,
    dailyQuantityFitsStep,
    holdingsCoverTarget,
    securityIsNormal,
};

/// Shows what a rule says; true when the plan may go on. An editor that dies under its own box goes nowhere.
bool mayGoOn(const Verdict& verdict, QWidget* editor)
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
        if (!mayGoOn(rule(plan), this))
            return false;
    }
    return true;
}

bool AutoParamSetting::isContainsSpecialChar(const QString& text, QString& found)
{
    return ::isContainsSpecialChar(text, found);
}
