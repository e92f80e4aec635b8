#pragma once

#include <QString>

/// Field keys of the algorithm service.
///
/// The values come from the linked platform; whoever uses them compares and stores them only.
namespace Algo_Fields {

/// Base data of one algorithm instruction.
namespace AlgoInstContentInfo {
extern const QString TradingAccount; ///< trading account
extern const QString Symbol;         ///< symbol of the security
/// `Algo_Values::AlgoOrderSide`.
extern const QString OrderSide;
/// Order property in the algorithm's own terms.
extern const QString EntrustProp;
} // namespace AlgoInstContentInfo

} // namespace Algo_Fields
