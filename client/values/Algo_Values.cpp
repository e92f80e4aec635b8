#include "Algo_Values.h"

namespace Algo_Values {

namespace AlgoGlobalType {
const QString instruction = QStringLiteral("instruction");
} // namespace AlgoGlobalType

namespace AlgoOrderSide {
const QString BuyValue = QStringLiteral("BUY");
const QString SellValue = QStringLiteral("SELL");
} // namespace AlgoOrderSide

} // namespace Algo_Values
