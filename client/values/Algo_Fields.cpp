#include "Algo_Fields.h"

namespace Algo_Fields {

namespace AlgoInstContentInfo {
const QString TradingAccount = QStringLiteral("AlgoTradingAccount");
const QString Symbol = QStringLiteral("AlgoSymbol");
const QString OrderSide = QStringLiteral("AlgoOrderSide");
const QString EntrustProp = QStringLiteral("AlgoEntrustProp");
} // namespace AlgoInstContentInfo

} // namespace Algo_Fields
