#include "Algo_Fields.h"
#include "Algo_Values.h"
#include "AutoPlanField.h"
#include "EditorModel.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloConstants.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "PlanVocabulary.h"
#include "Today.h"

#include <QLocale>

#include <cmath>

// The rules that a plan must pass before it is sent, in their order.

namespace model {

namespace {

constexpr double Tolerance = 1e-10;

bool isForbidden(QChar character)
{
    static const QString forbidden = QStringLiteral("`~!@#$&=|{}':[]<>?;") + QChar(0xFFFD);
    return forbidden.contains(character);
}

bool isDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

/// The percent signs at a position with the digit after them; empty if no digit follows.
QString percentSequence(const QString& formula, int from)
{
    int end = from;
    while (end < formula.size() && formula.at(end) == QLatin1Char('%'))
        ++end;
    const bool matches = end > from && end < formula.size() && isDigit(formula.at(end));
    return matches ? formula.mid(from, end + 1 - from) : QString();
}

bool isMultiple(qint64 quantity, int unit)
{
    return quantity % unit == 0;
}

QString required(const QString& caption)
{
    return QStringLiteral("%1必填，请重新编辑！").arg(caption);
}

QString formulaRequired(const QString& caption)
{
    return QStringLiteral("%1公式必填，请重新编辑！").arg(caption);
}

QString formulaForbidden(const QString& caption, const QString& part)
{
    return QStringLiteral("%1公式包含特殊字符%2，请重新编辑！").arg(caption, part);
}

} // namespace

QString forbiddenPart(const QString& formula)
{
    for (int i = 0; i < formula.size(); ++i) {
        if (isForbidden(formula.at(i)))
            return formula.mid(i, 1);
        const QString sequence = percentSequence(formula, i);
        if (!sequence.isEmpty())
            return sequence;
    }
    return {};
}

qint64 wholeNumber(double value)
{
    return static_cast<qint64>(std::trunc(value < -Tolerance ? value - 1e-6 : value + 1e-6));
}

bool EditorModel::refuse(const QString& sentence)
{
    effects.boxes.append(QStringLiteral("warning: ") + sentence);
    return false;
}

bool EditorModel::ask(const QString& question, QList<int>& answers)
{
    effects.boxes.append(QStringLiteral("question: ") + question);
    return answers.isEmpty() || answers.takeFirst() != 0;
}

bool EditorModel::passesRules(QList<int>& answers)
{
    return passesEntries() && passesPrices() && passesAlgorithm() && passesEdit() && passesQuestions(answers);
}

/// From the risk disclosure to the reduction ratio.
bool EditorModel::passesEntries()
{
    if (isReduction() && unsignedClients().contains(m_accounts.value(account()).clientNo))
        return refuse(QStringLiteral("当前账号未签署风险揭示，请关闭智能规划菜单后重新创建减持计划进行签署。"));
    if (account().isEmpty())
        return refuse(QStringLiteral("未绑定资金帐号！"));
    if (code(InstructionType).isEmpty())
        return refuse(required(text(InstructionTypeLabel)));
    if (form.symbol.isEmpty())
        return refuse(QStringLiteral("未输入代码！"));
    const int factor = m_world.security(form.symbol).displayFactor;
    if (!isReduction()) {
        if (isVisible(TargetTotal) && number(TargetTotal).text.isEmpty())
            return refuse(QStringLiteral("未输入目标总量！"));
        const qint64 target = wholeNumber(number(TargetTotal).value);
        if (isByQuantity() && (target < factor || !isMultiple(target, factor)))
            return refuse(QStringLiteral("沪市债券目标总量需为%1的正整数倍，是否继续？").arg(factor));
    }
    if (code(PlanType) == AutoPlanTemplate::SameElements && std::abs(number(DayMax).value) < Tolerance)
        return refuse(QStringLiteral("未输入每日计划量!"));
    if (isVisible(DayMax) && isByQuantity() && !isMultiple(wholeNumber(number(DayMax).value), factor))
        return refuse(QStringLiteral("沪市债券%1需为%2的正整数倍，是否继续？").arg(text(DayMaxLabel)).arg(factor));
    if (isReduction() && std::abs(number(Ratio).text.toDouble()) < Tolerance)
        return refuse(QStringLiteral("未输入减持占比！"));
    return true;
}

/// From the price formulas to the instruction mode.
bool EditorModel::passesPrices()
{
    const QString forbidden1 = forbiddenPart(text(Price1)), forbidden2 = forbiddenPart(text(Price2));
    if (text(Price1).isEmpty())
        return refuse(formulaRequired(text(Price1Label)));
    if (!forbidden1.isEmpty())
        return refuse(formulaForbidden(text(Price1Label), forbidden1));
    if (isVisible(Price2) && text(Price2).isEmpty())
        return refuse(formulaRequired(text(Price2Label)));
    if (isVisible(Price2) && !forbidden2.isEmpty())
        return refuse(formulaForbidden(text(Price2Label), forbidden2));
    if (isReduction() && box(AssignTo).current < 0)
        return refuse(required(text(AssignToLabel)));
    if (code(InstructionMode).isEmpty())
        return refuse(required(text(ModeLabel)));
    return true;
}

bool EditorModel::passesAlgorithm()
{
    using namespace Algo_Fields::AlgoInstContentInfo;
    if (code(InstructionMode) != AutoPlanInstMode::AlgoTradeReview)
        return true;
    if (!panel.exists || !panel.hasParams)
        return refuse(QStringLiteral("未设置算法参数！"));
    if (panel.params.value(TradingAccount).toString() != account())
        return refuse(QStringLiteral("算法参数中的交易账号与计划参数不一致！"));
    const QString side = panel.params.value(OrderSide).toString();
    const bool wrongBuy =
        code(TradeSide) == Kelvo_Values::OrderSide::buy && side != Algo_Values::AlgoOrderSide::BuyValue;
    const bool wrongSell =
        code(TradeSide) == Kelvo_Values::OrderSide::sell && side != Algo_Values::AlgoOrderSide::SellValue;
    if (wrongBuy || wrongSell)
        return refuse(QStringLiteral("算法参数中的交易方向与计划参数不一致！"));
    const bool needsLimit = panel.strategy == QLatin1String("ICEBERG2") || panel.strategy == QLatin1String("SNIPER");
    if (code(PriceMode) == AutoPlanPriceModel::NoLimit && needsLimit)
        return refuse(
            QStringLiteral("%1算法不支持不限价，请重新设置！").arg(m_world.strategyAliases.value(panel.strategy)));
    return true;
}

double EditorModel::spentOf(const FieldMap& instruction) const
{
    const bool ended = instruction.value(AutoPlanFieldId::InstructionEnded).toString() == QLatin1String("1");
    const bool byAmount =
        instruction.value(AutoPlanFieldId::TargetType).toString() == InstructionTargetType::AmountOrder;
    const QString filled = byAmount ? Orlo_Fields::Security::cumAmount : AutoPlanFieldId::FilledQty;
    const QString issued = byAmount ? AutoPlanFieldId::IssuedAmount : AutoPlanFieldId::IssuedQty;
    return instruction.value(ended ? filled : issued).toDouble();
}

bool EditorModel::passesEdit()
{
    if (m_planId.isEmpty())
        return true;
    double spent = 0;
    for (const FieldMap& instruction : m_world.planInstructions(m_planId))
        spent += spentOf(instruction);
    if (number(TargetTotal).value < spent - Tolerance)
        return refuse(QStringLiteral("目标数量不得小于该计划已成交和在下达总和，请重新输入！"));
    return passesStart();
}

/// A plan that has begun keeps its first day.
bool EditorModel::passesStart()
{
    const QString stored = m_world.plans.value(m_planId).value(AutoPlanField::BaseField::beginDate).toString();
    const QDate begin = QLocale::c().toDate(stored, OrloConstants::DateTimeFormatString::STD_DATE_FORMAT);
    if (begin > today())
        return true;
    const QString fixed = QStringLiteral("计划已开始执行，初始日期不支持修改！");
    if (isVisible(Range) && form.range.start != begin)
        return refuse(fixed);
    if (isVisible(Range) && form.range.end < today())
        return refuse(QStringLiteral("计划已开始执行，结束日期不得早于当日！"));
    if (isVisible(Single) && form.single.date != begin)
        return refuse(fixed);
    return true;
}

double EditorModel::heldQuantity() const
{
    const ScriptSecurity chosen = m_world.security(form.symbol);
    double held = 0;
    for (const FieldMap& position :
        m_world.positions(account(), m_world.securityAccount(account(), chosen.exchange), form.symbol))
        held += position.value(Kelvo_Fields::Security::tradeableQty).toDouble() * chosen.displayFactor;
    return held;
}

bool EditorModel::passesQuestions(QList<int>& answers)
{
    const ScriptSecurity chosen = m_world.security(form.symbol);
    const auto fitsStep = [&](Widget label, Widget which, Widget caption) {
        if (!isVisible(label) || isMultiple(static_cast<int>(number(which).value), chosen.qtyStep))
            return true;
        return ask(
            QStringLiteral("%1需等于【%2】的整数倍，是否继续？").arg(text(caption)).arg(chosen.qtyStep), answers);
    };
    if (!fitsStep(TargetStep, TargetTotal, TargetTotalLabel) || !fitsStep(DayMaxStep, DayMax, DayMaxLabel))
        return false;
    const bool sells = isByQuantity() && code(TradeSide) == Kelvo_Values::OrderSide::sell
        && code(InstructionType) != AutoPlanInstructionType::Credit;
    if (sells && heldQuantity() < number(TargetTotal).value) {
        const QString doing = m_planId.isEmpty() ? QStringLiteral("创建") : QStringLiteral("修改");
        const QString question = QStringLiteral(
            "当前账号【%1】的持仓可用小于目标总量，是否继续%2计划？继续请点击【确认】，否则点击【取消】");
        if (!ask(question.arg(fundAccount(), doing), answers))
            return false;
    }
    const bool buys = code(TradeSide) == Orlo_Values::OrderSide::buy;
    const bool isTreated = !chosen.stFlag.isEmpty() && chosen.stFlag != Orlo_Values::StFlag::Normal;
    return !buys || !isTreated || ask(chosen.stDescription + QStringLiteral("。是否继续创建？"), answers);
}

} // namespace model
