#pragma once

#include <QString>

/// Codes of the algorithm service.
///
/// The linked platform defines the values. Other code only compares and stores them.
namespace Algo_Values {

/// Kinds of algorithm widgets.
namespace AlgoGlobalType {
/// Parameters of one instruction.
extern const QString instruction;
} // namespace AlgoGlobalType

/// Side of an algorithm instruction.
namespace AlgoOrderSide {
extern const QString BuyValue;  ///< a purchase
extern const QString SellValue; ///< a sale
} // namespace AlgoOrderSide

} // namespace Algo_Values
