#pragma once

#include <QString>

/// Codes of the algorithm service.
///
/// The values come from the linked platform; whoever uses them compares and stores them only.
namespace Algo_Values {

/// Kind of algorithm widget.
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
