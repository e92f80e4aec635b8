#pragma once

#include <QString>

/// Keys of the plan record and of its other-parameter map.
///
/// The linked platform defines the values. Other code only compares and stores them.
namespace AutoPlanField {

/// Contents of a plan. Every value is text unless stated otherwise.
namespace BaseField {
/// Id of the stored plan; assigned by the plan service, sent with a modification.
extern const QString autoPlanId;
/// Side code, `Kelvo_Values::OrderSide`.
extern const QString orderSide;
/// Price mode code.
extern const QString priceModel;
/// Text of the first price input; sent only in the no-limit price mode.
extern const QString priceFixed;
/// First price formula as typed.
extern const QString priceFormula1;
/// Second price formula as typed; sent only if two formulas are compared.
extern const QString priceFormula2;
/// Target total in stored units, whole number as decimal text.
extern const QString totalQty;
/// Instruction mode code.
extern const QString InstMode;
/// Assignee of an ordinary plan, as displayed; absent if no user is named.
extern const QString expectedUser;
/// Executor of a holdings-reduction plan, as displayed.
extern const QString executeUser;
/// First day, text in `OrloConstants::DateTimeFormatString::STD_DATE_FORMAT`.
extern const QString beginDate;
/// Last day, same format.
extern const QString endDate;
/// The other-parameter map as compact JSON text.
extern const QString planOtherParam;
/// Free text; absent if empty.
extern const QString remark;
/// Other parameter: target amount in yuan, as the input shows it.
extern const QString tradeAmount;
/// Other parameter: largest amount per day in yuan, as the input shows it.
extern const QString dayMaxTradeAmount;
/// Other parameter: parameters of the algorithm, as a map.
extern const QString algoParam;
/// Other parameter: name of the algorithm.
extern const QString algoStrategyName;
/// Other parameter: sub-type code of the security.
extern const QString securitySubType;
/// Other parameter: ratio of the holdings to be reduced, 0 to 1 as decimal text.
extern const QString JCRatio;
/// Other parameter: holdings-reduction mode code.
extern const QString JCModel;
} // namespace BaseField

/// Progress of a plan.
namespace Progress {
/// Other parameter: quantity per day in stored units, whole number as decimal text.
extern const QString CurrentQty;
} // namespace Progress

} // namespace AutoPlanField
