#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

/// The fields of a record, of its other parameters or of an instruction, by key.
using FieldMap = QMap<QString, QVariant>;

/// Codes of the form's items, as stored in plans. Comparisons are exact and case-sensitive. Codes of different families
/// may be equal; each box is searched only for codes of one family.

/// Plan types.
namespace AutoPlanTemplate {
inline const QString CumulativeQty = QStringLiteral("TW-01"); ///< a cumulative quantity
inline const QString AverageQty = QStringLiteral("TW-02");    ///< an average quantity per day
inline const QString SameElements = QStringLiteral("TW-03");  ///< the same order every day
/// Holdings reduction: the only type that changes the form.
inline const QString ReduceHoldings = QStringLiteral("JC-01");
} // namespace AutoPlanTemplate

/// Instruction types; the static configuration holds their texts.
namespace AutoPlanInstructionType {
inline const QString Ordinary = QStringLiteral("1");  ///< stocks and funds without margin
inline const QString Credit = QStringLiteral("2");    ///< margin trading
inline const QString Bond = QStringLiteral("5");      ///< bonds
inline const QString HkConnect = QStringLiteral("9"); ///< Hong Kong connect
} // namespace AutoPlanInstructionType

/// Instruction modes.
namespace AutoPlanInstMode {
inline const QString ActiveManage = QStringLiteral("1");      ///< without review
inline const QString NormalTradeReview = QStringLiteral("2"); ///< reviewed and traded by hand
inline const QString AlgoTradeReview = QStringLiteral("3");   ///< reviewed and traded by an algorithm
} // namespace AutoPlanInstMode

/// Values of a user's instruction rule property: whether the user's instructions are reviewed.
namespace AutoPlanRuleProperty {
constexpr int NoReview = 0; ///< not reviewed
constexpr int Review = 1;   ///< reviewed
} // namespace AutoPlanRuleProperty

/// Price modes, in the client's numbering, which has gaps.
namespace AutoPlanPriceModel {
inline const QString NoLimit = QStringLiteral("1");    ///< no price limit
inline const QString Custom = QStringLiteral("6");     ///< one formula
inline const QString CompareMax = QStringLiteral("7"); ///< the larger of two formulas
inline const QString CompareMin = QStringLiteral("8"); ///< the smaller of two formulas
} // namespace AutoPlanPriceModel

/// Assignees.
namespace AutoPlanAssignee {
/// No user is named. The item's text is also its code.
inline const QString NotSpecified = QStringLiteral("默认不指定");
} // namespace AutoPlanAssignee

/// Holdings-reduction modes.
namespace ReduceHoldingsMode {
inline const QString Continuous90Days = QStringLiteral("1"); ///< at most 1 % in 90 consecutive days
} // namespace ReduceHoldingsMode

/// Algorithms.
namespace AutoPlanAlgo {
/// Strategies that do not support the no-limit price mode.
inline const QStringList NoUnlimitedPriceList = { QStringLiteral("ICEBERG2"), QStringLiteral("SNIPER") };
} // namespace AutoPlanAlgo

/// Price formulas.
namespace AutoPlanFormula {
/// Functions offered in a custom formula.
inline const QStringList CompareFunctions = { QStringLiteral("max(,)"), QStringLiteral("min(,)") };
inline const QString PreviousClose = QStringLiteral("昨收价"); ///< close of the previous day
inline const QString UpperLimit = QStringLiteral("涨停价");    ///< the day's upper limit
inline const QString LowerLimit = QStringLiteral("跌停价");    ///< the day's lower limit
/// The order in which names are offered; the averages are in the order that traders are used to.
inline const QStringList PromptOrder = { PreviousClose, UpperLimit, LowerLimit, QStringLiteral("MA20"),
    QStringLiteral("MA60"), QStringLiteral("MA120"), QStringLiteral("MA5"), QStringLiteral("MA10"),
    QStringLiteral("MA250") };
} // namespace AutoPlanFormula

/// Map keys without a constant in the client's headers: numeric field ids, and one name.
namespace AutoPlanFieldId {
/// Target type code, in the other-parameter map and in an instruction.
inline const QString TargetType = QStringLiteral("57134");
/// Branch of the trading account, in the plan record.
inline const QString Account10112 = QStringLiteral("10112");
/// Entrust type as a number, in the other-parameter map.
inline const QString MarginInstructionSideType = QStringLiteral("MarginInstructionSideType");
/// "1" once an instruction has ended.
inline const QString InstructionEnded = QStringLiteral("12013");
/// Filled quantity of an instruction, in displayed units.
inline const QString FilledQty = QStringLiteral("14");
inline const QString IssuedQty = QStringLiteral("38"); ///< issued quantity of an instruction, in displayed units
/// Issued amount of an instruction, in yuan.
inline const QString IssuedAmount = QStringLiteral("217201");
} // namespace AutoPlanFieldId

/// Categories of the static configuration.
namespace AutoPlanStaticCfg {
inline const QString InstructionType = QStringLiteral("AutoPlanInstructionType"); ///< texts of instruction types
inline const QString TargetType = QStringLiteral("InstructionTargetType");        ///< texts of target types
} // namespace AutoPlanStaticCfg
