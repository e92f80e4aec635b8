#pragma once

#include <QString>
#include <QStringList>

/// The codes that the form's items carry and that plans store. Comparisons are exact and case-sensitive. Codes of
/// different families may be equal; each box is searched for its own family only.

/// Plan types.
namespace AutoPlanTemplate {
inline const QString CumulativeQty = QStringLiteral("TW-01");
inline const QString AverageQty = QStringLiteral("TW-02");
inline const QString SameElements = QStringLiteral("TW-03");
/// Holdings reduction: the one type that changes the form.
inline const QString ReduceHoldings = QStringLiteral("JC-01");
} // namespace AutoPlanTemplate

/// Instruction types; their texts stand in the static configuration.
namespace AutoPlanInstructionType {
inline const QString Ordinary = QStringLiteral("1");
inline const QString Credit = QStringLiteral("2");
inline const QString Bond = QStringLiteral("5");
inline const QString HkConnect = QStringLiteral("9");
} // namespace AutoPlanInstructionType

/// Instruction modes.
namespace AutoPlanInstMode {
inline const QString ActiveManage = QStringLiteral("1");
inline const QString NormalTradeReview = QStringLiteral("2");
inline const QString AlgoTradeReview = QStringLiteral("3");
} // namespace AutoPlanInstMode

/// Whether a user's instructions go through review; the user's instruction rule property.
namespace AutoPlanRuleProperty {
constexpr int NoReview = 0;
constexpr int Review = 1;
} // namespace AutoPlanRuleProperty

/// Price modes, in the client's own, sparse numbering.
namespace AutoPlanPriceModel {
inline const QString NoLimit = QStringLiteral("1");
inline const QString Custom = QStringLiteral("6");
inline const QString CompareMax = QStringLiteral("7");
inline const QString CompareMin = QStringLiteral("8");
} // namespace AutoPlanPriceModel

/// Assignees.
namespace AutoPlanAssignee {
/// Nobody is named; the text is its own code.
inline const QString NotSpecified = QStringLiteral("默认不指定");
} // namespace AutoPlanAssignee

/// Holdings-reduction modes.
namespace ReduceHoldingsMode {
inline const QString Continuous90Days = QStringLiteral("1");
} // namespace ReduceHoldingsMode

/// Algorithms.
namespace AutoPlanAlgo {
/// Strategies that refuse the no-limit price mode.
inline const QStringList NoUnlimitedPriceList = { QStringLiteral("ICEBERG2"), QStringLiteral("SNIPER") };
} // namespace AutoPlanAlgo

/// Price formulas.
namespace AutoPlanFormula {
/// Functions offered in a custom formula.
inline const QStringList CompareFunctions = { QStringLiteral("max(,)"), QStringLiteral("min(,)") };
inline const QString PreviousClose = QStringLiteral("昨收价");
inline const QString UpperLimit = QStringLiteral("涨停价");
inline const QString LowerLimit = QStringLiteral("跌停价");
/// The order in which names are offered; the averages stand in the order that traders here are used to.
inline const QStringList PromptOrder = { PreviousClose, UpperLimit, LowerLimit, QStringLiteral("MA20"),
    QStringLiteral("MA60"), QStringLiteral("MA120"), QStringLiteral("MA5"), QStringLiteral("MA10"),
    QStringLiteral("MA250") };
} // namespace AutoPlanFormula

/// Map keys that are no constants of the client's: its numeric field ids, and one name.
namespace AutoPlanFieldId {
/// Target type code, in the other-parameter map and in an instruction.
inline const QString TargetType = QStringLiteral("57134");
/// Branch of the trading account, in the plan record.
inline const QString Account10112 = QStringLiteral("10112");
/// Entrust type as a number, in the other-parameter map.
inline const QString MarginInstructionSideType = QStringLiteral("MarginInstructionSideType");
/// "1" once an instruction has ended.
inline const QString InstructionEnded = QStringLiteral("12013");
/// Filled and issued quantity of an instruction.
inline const QString FilledQty = QStringLiteral("14");
inline const QString IssuedQty = QStringLiteral("38");
/// Issued amount of an instruction, in yuan.
inline const QString IssuedAmount = QStringLiteral("217201");
} // namespace AutoPlanFieldId

/// Categories of the static configuration.
namespace AutoPlanStaticCfg {
inline const QString InstructionType = QStringLiteral("AutoPlanInstructionType");
inline const QString TargetType = QStringLiteral("InstructionTargetType");
} // namespace AutoPlanStaticCfg
