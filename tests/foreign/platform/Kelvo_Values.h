#pragma once

#include <QString>

namespace Kelvo_Values {
namespace OrderSide {
inline const QString buy = QStringLiteral("B");
inline const QString sell = QStringLiteral("S");
} // namespace OrderSide
namespace Exchange {
inline const QString sh = QStringLiteral("XSHG");
inline const QString sz = QStringLiteral("XSHE");
} // namespace Exchange
namespace SymbolPost {
inline const QString sh = QStringLiteral("@XSHG");
inline const QString sz = QStringLiteral("@XSHE");
} // namespace SymbolPost
namespace MdcSecurityType {
inline const QString StockType = QStringLiteral("stock");
inline const QString BondType = QStringLiteral("bond");
inline const QString FundType = QStringLiteral("fund");
} // namespace MdcSecurityType
namespace MdcSubSecurityType {
inline const QString Ashares = QStringLiteral("stock/main");
inline const QString Gemstock = QStringLiteral("stock/growth");
inline const QString Smallandmediumstock = QStringLiteral("stock/small");
inline const QString Assetbackedsecurities = QStringLiteral("bond/backed");
inline const QString TradingopenindexfundETF = QStringLiteral("fund/index");
} // namespace MdcSubSecurityType
} // namespace Kelvo_Values
