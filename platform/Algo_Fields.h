#pragma once

#include <QString>

/// Field keys of the algorithm service.
///
/// The linked platform defines the values. Other code only compares and stores them.
namespace Algo_Fields {

/// Base data of one algorithm instruction.
namespace AlgoInstContentInfo {
extern const QString TradingAccount; ///< trading account
extern const QString Symbol;         ///< symbol of the security
/// `Algo_Values::AlgoOrderSide`.
extern const QString OrderSide;
/// Order property, in the algorithm's codes.
extern const QString EntrustProp;
} // namespace AlgoInstContentInfo

} // namespace Algo_Fields
