#include "Kelvo_Values.h"

namespace Kelvo_Values {

// The same code as `Orlo_Values::OrderSide::buy` and `Orlo_Values::SideUnion::normalBuy`: a plan's side is compared
// with all three.
namespace OrderSide {
const QString buy = QStringLiteral("1");
const QString sell = QStringLiteral("2");
} // namespace OrderSide

namespace Exchange {
const QString sh = QStringLiteral("XSHG");
const QString sz = QStringLiteral("XSHE");
} // namespace Exchange

namespace SymbolPost {
const QString sh = QStringLiteral(".SH");
const QString sz = QStringLiteral(".SZ");
} // namespace SymbolPost

namespace MdcSecurityType {
const QString StockType = QStringLiteral("stock");
const QString BondType = QStringLiteral("bond");
const QString FundType = QStringLiteral("fund");
} // namespace MdcSecurityType

namespace MdcSubSecurityType {
const QString Ashares = QStringLiteral("stock-main");
const QString Gemstock = QStringLiteral("stock-growth");
const QString Smallandmediumstock = QStringLiteral("stock-small-medium");
const QString Assetbackedsecurities = QStringLiteral("bond-asset-backed");
const QString TradingopenindexfundETF = QStringLiteral("fund-etf");
} // namespace MdcSubSecurityType

} // namespace Kelvo_Values
