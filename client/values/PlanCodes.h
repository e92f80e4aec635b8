#pragma once

#include <QString>

/// Codes of plan records and instructions that `platform/` does not declare. The plan service reads them; the editor
/// has its own table of the codes that it offers.
namespace PlanCodes {

/// Values of `Orlo_Fields::AutoPlan::templateCode`.
namespace PlanType {
inline const QString CumulativeQty = QStringLiteral("TW-01");
inline const QString AverageQty = QStringLiteral("TW-02");
inline const QString SameElements = QStringLiteral("TW-03");
inline const QString ReduceHoldings = QStringLiteral("JC-01");
} // namespace PlanType

/// Values of `Orlo_Fields::AutoPlan::subType`.
namespace InstructionType {
inline const QString Ordinary = QStringLiteral("1");
inline const QString Credit = QStringLiteral("2");
inline const QString Bond = QStringLiteral("5");
inline const QString HkConnect = QStringLiteral("9");
} // namespace InstructionType

/// The states of plans in files.
namespace StateName {
inline const QString Active = QStringLiteral("active");
inline const QString Paused = QStringLiteral("paused");
inline const QString Stopped = QStringLiteral("stopped");
inline const QString Archived = QStringLiteral("archived");
} // namespace StateName

/// Values of `AutoPlanField::BaseField::InstMode`.
namespace InstMode {
inline const QString ActiveManage = QStringLiteral("1");
inline const QString NormalReview = QStringLiteral("2");
inline const QString AlgoReview = QStringLiteral("3");
} // namespace InstMode

/// Values of `AutoPlanField::BaseField::priceModel`.
namespace PriceModel {
inline const QString NoLimit = QStringLiteral("1");
inline const QString Custom = QStringLiteral("6");
inline const QString CompareMax = QStringLiteral("7");
inline const QString CompareMin = QStringLiteral("8");
} // namespace PriceModel

/// Field ids in an instruction's field map and in the other-parameter map.
namespace FieldId {
/// Price in yuan with the security's decimals; without a limit "0" with as many decimals.
inline const QString Price = QStringLiteral("44");
/// Day of the instruction, same format as a plan's dates.
inline const QString TradeDate = QStringLiteral("75");
/// Filled quantity in displayed units.
inline const QString FilledQty = QStringLiteral("14");
/// Issued quantity in displayed units.
inline const QString IssuedQty = QStringLiteral("38");
/// `Ended` once the instruction has ended.
inline const QString EndState = QStringLiteral("12013");
/// Target type; absent means by quantity.
inline const QString TargetType = QStringLiteral("57134");
/// Issued amount in yuan.
inline const QString IssuedAmount = QStringLiteral("217201");
/// Branch of the account.
inline const QString Branch = QStringLiteral("10112");
/// Other parameter: entrust type as a number, see `VorMarginTradeType`.
inline const QString MarginSide = QStringLiteral("MarginInstructionSideType");
} // namespace FieldId

/// Values of `FieldId::EndState`.
namespace EndState {
inline const QString Running = QStringLiteral("0");
inline const QString Ended = QStringLiteral("1");
} // namespace EndState

/// Categories of the static configuration that `OrloConstants::DictionaryKey` does not name.
namespace StaticCategory {
inline const QString InstructionType = QStringLiteral("AutoPlanInstructionType");
inline const QString TargetType = QStringLiteral("InstructionTargetType");
} // namespace StaticCategory

} // namespace PlanCodes
