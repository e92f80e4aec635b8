#include "Orlo_Values.h"

namespace Orlo_Values {

namespace OrderSide {
const QString buy = QStringLiteral("1");
} // namespace OrderSide

namespace SideUnion {
const QString normalBuy = QStringLiteral("1");
const QString collateralBuy = QStringLiteral("31");
const QString collateralSell = QStringLiteral("32");
const QString marginBuy = QStringLiteral("33");
const QString marginSell = QStringLiteral("34");
const QString financingBuy = QStringLiteral("35");
const QString financingSell = QStringLiteral("36");
const QString marginBuyNormal = QStringLiteral("37");
const QString marginSellNormal = QStringLiteral("38");
const QString BondConversion = QStringLiteral("41");
const QString paidRationShare = QStringLiteral("42");
} // namespace SideUnion

namespace HKTimeInForce {
const QString InTrade = QStringLiteral("ELO");
const QString BeforeTrade = QStringLiteral("ALO");
} // namespace HKTimeInForce

namespace FundAccountType {
const QString Credit = QStringLiteral("credit");
} // namespace FundAccountType

namespace Exchange {
const QString bj = QStringLiteral("XBSE");
const QString HkStockCirculation = QStringLiteral("XHKG");
} // namespace Exchange

namespace MdcSubSecurityType {
const QString ScienTechInnovateBoard = QStringLiteral("stock-science");
const QString BjSelectedStock = QStringLiteral("stock-selected");
const QString HStcokCirculation = QStringLiteral("stock-connect");
const QString Reits = QStringLiteral("fund-reit");
const QString DirectedConBond = QStringLiteral("bond-convertible-directed");
const QString PaidRationBond = QStringLiteral("bond-rights");
const QString PaidRationStock = QStringLiteral("stock-rights");
// Last in this file: both lists are made of members above and of codes that nobody names alone.
const QStringList ConvertableBondTypeList{ QStringLiteral("bond-convertible"), QStringLiteral("bond-exchangeable"),
    DirectedConBond };
const QStringList AllBondNoRepurchaseTypeList =
    QStringList{ QStringLiteral("bond-treasury"), QStringLiteral("bond-local-government"),
        QStringLiteral("bond-policy-bank"), QStringLiteral("bond-corporate"), QStringLiteral("bond-enterprise") }
    + ConvertableBondTypeList;
} // namespace MdcSubSecurityType

namespace StFlag {
const QString Normal = QStringLiteral("0");
} // namespace StFlag

namespace ProtocolId {
const QString AutoPlanReduceAgree = QStringLiteral("auto-plan-reduce");
} // namespace ProtocolId

} // namespace Orlo_Values
