#pragma once

#include <QString>
#include <QStringList>

namespace Orlo_Values {
namespace OrderSide {
inline const QString buy = QStringLiteral("B");
}
namespace SideUnion {
inline const QString normalBuy = QStringLiteral("B");
inline const QString collateralBuy = QStringLiteral("cB");
inline const QString collateralSell = QStringLiteral("cS");
inline const QString marginBuy = QStringLiteral("mB");
inline const QString marginSell = QStringLiteral("mS");
inline const QString financingBuy = QStringLiteral("fB");
inline const QString financingSell = QStringLiteral("fS");
inline const QString marginBuyNormal = QStringLiteral("nB");
inline const QString marginSellNormal = QStringLiteral("nS");
inline const QString BondConversion = QStringLiteral("conversion");
inline const QString paidRationShare = QStringLiteral("rights");
} // namespace SideUnion
namespace HKTimeInForce {
inline const QString InTrade = QStringLiteral("enhanced");
inline const QString BeforeTrade = QStringLiteral("auction");
} // namespace HKTimeInForce
namespace FundAccountType {
inline const QString Credit = QStringLiteral("credit");
}
namespace Exchange {
inline const QString bj = QStringLiteral("XBEI");
inline const QString HkStockCirculation = QStringLiteral("XHKG");
} // namespace Exchange
namespace MdcSubSecurityType {
inline const QString ScienTechInnovateBoard = QStringLiteral("stock/science");
inline const QString BjSelectedStock = QStringLiteral("stock/beijing");
inline const QString HStcokCirculation = QStringLiteral("stock/hongkong");
inline const QString Reits = QStringLiteral("fund/estate");
inline const QString DirectedConBond = QStringLiteral("bond/directed");
inline const QString PaidRationBond = QStringLiteral("bond/rights");
inline const QString PaidRationStock = QStringLiteral("stock/rights");
inline const QStringList AllBondNoRepurchaseTypeList = { DirectedConBond };
inline const QStringList ConvertableBondTypeList = { DirectedConBond };
} // namespace MdcSubSecurityType
namespace StFlag {
inline const QString Normal = QStringLiteral("normal");
}
namespace ProtocolId {
inline const QString AutoPlanReduceAgree = QStringLiteral("reduction");
}
} // namespace Orlo_Values
