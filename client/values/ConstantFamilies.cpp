// The values of the constant families that platform/ declares.
#include "Algo_Fields.h"
#include "Algo_Values.h"
#include "AutoPlanField.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloConstants.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"

namespace AutoPlanField {

namespace BaseField {
const QString autoPlanId = QStringLiteral("autoPlanId");
const QString orderSide = QStringLiteral("orderSide");
const QString priceModel = QStringLiteral("priceModel");
const QString priceFixed = QStringLiteral("priceFixed");
const QString priceFormula1 = QStringLiteral("priceFormula1");
const QString priceFormula2 = QStringLiteral("priceFormula2");
const QString totalQty = QStringLiteral("totalQty");
const QString InstMode = QStringLiteral("instMode");
const QString expectedUser = QStringLiteral("expectedUser");
const QString executeUser = QStringLiteral("executeUser");
const QString beginDate = QStringLiteral("beginDate");
const QString endDate = QStringLiteral("endDate");
const QString planOtherParam = QStringLiteral("planOtherParam");
const QString remark = QStringLiteral("remark");
const QString tradeAmount = QStringLiteral("tradeAmount");
const QString dayMaxTradeAmount = QStringLiteral("dayMaxTradeAmount");
const QString algoParam = QStringLiteral("algoParam");
const QString algoStrategyName = QStringLiteral("algoStrategyName");
const QString securitySubType = QStringLiteral("securitySubType");
const QString JCRatio = QStringLiteral("JCRatio");
const QString JCModel = QStringLiteral("JCModel");
} // namespace BaseField

namespace Progress {
const QString CurrentQty = QStringLiteral("currentQty");
} // namespace Progress

} // namespace AutoPlanField

namespace InstructionTargetType {

const QString QtyOrder = QStringLiteral("Q");
const QString AmountOrder = QStringLiteral("A");

} // namespace InstructionTargetType

namespace Kelvo_Fields {

namespace UserAccount {
const QString userID = QStringLiteral("userID");
const QString tradingAccount = QStringLiteral("tradingAccount");
const QString securityExchange = QStringLiteral("securityExchange");
const QString securityAccount = QStringLiteral("securityAccount");
} // namespace UserAccount

namespace Security {
const QString symbol = QStringLiteral("symbol");
const QString timeInForce = QStringLiteral("timeInForce");
const QString transActTime = QStringLiteral("transActTime");
const QString tradeableQty = QStringLiteral("tradeableQty");
} // namespace Security

} // namespace Kelvo_Fields

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

namespace Orlo_Fields {

namespace AutoPlan {
const QString templateCode = QStringLiteral("templateCode");
const QString subType = QStringLiteral("subType");
} // namespace AutoPlan

namespace Security {
const QString cumAmount = QStringLiteral("cumAmount");
} // namespace Security

} // namespace Orlo_Fields

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
// Both lists consist of members above and of codes without a name.
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

namespace OrloConstants {

namespace DateTimeFormatString {
const QString STD_DATE_FORMAT = QStringLiteral("yyyy-MM-dd");
} // namespace DateTimeFormatString

namespace DictionaryKey {
const QString SideUnion2AlgoDefines = QStringLiteral("SideUnion2AlgoDefines");
const QString exchangeChineseName = QStringLiteral("ExchangeChineseName");
} // namespace DictionaryKey

} // namespace OrloConstants

namespace Algo_Fields {

namespace AlgoInstContentInfo {
const QString TradingAccount = QStringLiteral("AlgoTradingAccount");
const QString Symbol = QStringLiteral("AlgoSymbol");
const QString OrderSide = QStringLiteral("AlgoOrderSide");
const QString EntrustProp = QStringLiteral("AlgoEntrustProp");
} // namespace AlgoInstContentInfo

} // namespace Algo_Fields

namespace Algo_Values {

namespace AlgoGlobalType {
const QString instruction = QStringLiteral("instruction");
} // namespace AlgoGlobalType

namespace AlgoOrderSide {
const QString BuyValue = QStringLiteral("BUY");
const QString SellValue = QStringLiteral("SELL");
} // namespace AlgoOrderSide

} // namespace Algo_Values
