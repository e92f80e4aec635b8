#pragma once

#include <QString>

namespace Algo_Fields::AlgoInstContentInfo {
inline const QString TradingAccount = QStringLiteral("algo.account");
inline const QString Symbol = QStringLiteral("algo.security");
inline const QString OrderSide = QStringLiteral("algo.side");
inline const QString EntrustProp = QStringLiteral("algo.property");
} // namespace Algo_Fields::AlgoInstContentInfo
