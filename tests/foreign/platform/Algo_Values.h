#pragma once

#include <QString>

namespace Algo_Values {
namespace AlgoGlobalType {
inline const QString instruction = QStringLiteral("one instruction");
}
namespace AlgoOrderSide {
inline const QString BuyValue = QStringLiteral("algo-buy");
inline const QString SellValue = QStringLiteral("algo-sell");
} // namespace AlgoOrderSide
} // namespace Algo_Values
