#include "Algo_Fields.h"
#include "Algo_Values.h"
#include "AutoPlanField.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloConstants.h"
#include "OrloPushButton.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"

// Each value differs from every other and from the client's, so that a wrong constant shows. Some rules compare codes
// of different families, so a second build of this file has the same code for a purchase in all of them.
#ifdef ONE_CODE_FOR_PURCHASES
#define PURCHASE_CODE(code) QStringLiteral("k_side_buy")
#else
#define PURCHASE_CODE(code) QStringLiteral(code)
#endif

namespace Algo_Fields::AlgoInstContentInfo {
const QString TradingAccount = QStringLiteral("af_AlgoInstContentInfo_TradingAccount");
const QString Symbol = QStringLiteral("af_AlgoInstContentInfo_Symbol");
const QString OrderSide = QStringLiteral("af_AlgoInstContentInfo_OrderSide");
const QString EntrustProp = QStringLiteral("af_AlgoInstContentInfo_EntrustProp");
} // namespace Algo_Fields::AlgoInstContentInfo

namespace Algo_Values::AlgoGlobalType {
const QString instruction = QStringLiteral("av_AlgoGlobalType_instruction");
} // namespace Algo_Values::AlgoGlobalType

namespace Algo_Values::AlgoOrderSide {
const QString BuyValue = QStringLiteral("av_AlgoOrderSide_BuyValue");
const QString SellValue = QStringLiteral("av_AlgoOrderSide_SellValue");
} // namespace Algo_Values::AlgoOrderSide

namespace AutoPlanField::BaseField {
const QString autoPlanId = QStringLiteral("pf_BaseField_autoPlanId");
const QString orderSide = QStringLiteral("pf_BaseField_orderSide");
const QString priceModel = QStringLiteral("pf_BaseField_priceModel");
const QString priceFixed = QStringLiteral("pf_BaseField_priceFixed");
const QString priceFormula1 = QStringLiteral("pf_BaseField_priceFormula1");
const QString priceFormula2 = QStringLiteral("pf_BaseField_priceFormula2");
const QString totalQty = QStringLiteral("pf_BaseField_totalQty");
const QString InstMode = QStringLiteral("pf_BaseField_InstMode");
const QString expectedUser = QStringLiteral("pf_BaseField_expectedUser");
const QString executeUser = QStringLiteral("pf_BaseField_executeUser");
const QString beginDate = QStringLiteral("pf_BaseField_beginDate");
const QString endDate = QStringLiteral("pf_BaseField_endDate");
const QString planOtherParam = QStringLiteral("pf_BaseField_planOtherParam");
const QString remark = QStringLiteral("pf_BaseField_remark");
const QString tradeAmount = QStringLiteral("pf_BaseField_tradeAmount");
const QString dayMaxTradeAmount = QStringLiteral("pf_BaseField_dayMaxTradeAmount");
const QString algoParam = QStringLiteral("pf_BaseField_algoParam");
const QString algoStrategyName = QStringLiteral("pf_BaseField_algoStrategyName");
const QString securitySubType = QStringLiteral("pf_BaseField_securitySubType");
const QString JCRatio = QStringLiteral("pf_BaseField_JCRatio");
const QString JCModel = QStringLiteral("pf_BaseField_JCModel");
} // namespace AutoPlanField::BaseField

namespace AutoPlanField::Progress {
const QString CurrentQty = QStringLiteral("pf_Progress_CurrentQty");
} // namespace AutoPlanField::Progress

namespace InstructionTargetType {
const QString QtyOrder = QStringLiteral("tt_QtyOrder");
const QString AmountOrder = QStringLiteral("tt_AmountOrder");
} // namespace InstructionTargetType

namespace Kelvo_Fields::UserAccount {
const QString userID = QStringLiteral("kf_UserAccount_userID");
const QString tradingAccount = QStringLiteral("kf_UserAccount_tradingAccount");
const QString securityExchange = QStringLiteral("kf_UserAccount_securityExchange");
const QString securityAccount = QStringLiteral("kf_UserAccount_securityAccount");
} // namespace Kelvo_Fields::UserAccount

namespace Kelvo_Fields::Security {
const QString symbol = QStringLiteral("kf_Security_symbol");
const QString timeInForce = QStringLiteral("kf_Security_timeInForce");
const QString transActTime = QStringLiteral("kf_Security_transActTime");
const QString tradeableQty = QStringLiteral("kf_Security_tradeableQty");
} // namespace Kelvo_Fields::Security

namespace Kelvo_Values::OrderSide {
const QString buy = QStringLiteral("k_side_buy");
const QString sell = QStringLiteral("k_side_sell");
} // namespace Kelvo_Values::OrderSide

namespace Kelvo_Values::Exchange {
const QString sh = QStringLiteral("k_Exchange_sh");
const QString sz = QStringLiteral("k_Exchange_sz");
} // namespace Kelvo_Values::Exchange

namespace Kelvo_Values::SymbolPost {
const QString sh = QStringLiteral(".K_SH");
const QString sz = QStringLiteral(".K_SZ");
} // namespace Kelvo_Values::SymbolPost

namespace Kelvo_Values::MdcSecurityType {
const QString StockType = QStringLiteral("k_MdcSecurityType_StockType");
const QString BondType = QStringLiteral("k_MdcSecurityType_BondType");
const QString FundType = QStringLiteral("k_MdcSecurityType_FundType");
} // namespace Kelvo_Values::MdcSecurityType

namespace Kelvo_Values::MdcSubSecurityType {
const QString Ashares = QStringLiteral("k_MdcSubSecurityType_Ashares");
const QString Gemstock = QStringLiteral("k_MdcSubSecurityType_Gemstock");
const QString Smallandmediumstock = QStringLiteral("k_MdcSubSecurityType_Smallandmediumstock");
const QString Assetbackedsecurities = QStringLiteral("k_MdcSubSecurityType_Assetbackedsecurities");
const QString TradingopenindexfundETF = QStringLiteral("k_MdcSubSecurityType_TradingopenindexfundETF");
} // namespace Kelvo_Values::MdcSubSecurityType

namespace OrloConstants::DateTimeFormatString {
const QString STD_DATE_FORMAT = QStringLiteral("yyyy/MM/dd");
} // namespace OrloConstants::DateTimeFormatString

namespace OrloConstants::DictionaryKey {
const QString SideUnion2AlgoDefines = QStringLiteral("oc_DictionaryKey_SideUnion2AlgoDefines");
const QString exchangeChineseName = QStringLiteral("oc_DictionaryKey_exchangeChineseName");
} // namespace OrloConstants::DictionaryKey

namespace Orlo_Fields::AutoPlan {
const QString templateCode = QStringLiteral("of_AutoPlan_templateCode");
const QString subType = QStringLiteral("of_AutoPlan_subType");
} // namespace Orlo_Fields::AutoPlan

namespace Orlo_Fields::Security {
const QString cumAmount = QStringLiteral("of_Security_cumAmount");
} // namespace Orlo_Fields::Security

namespace Orlo_Values::OrderSide {
const QString buy = PURCHASE_CODE("o_OrderSide_buy");
} // namespace Orlo_Values::OrderSide

namespace Orlo_Values::SideUnion {
const QString normalBuy = PURCHASE_CODE("o_SideUnion_normalBuy");
const QString collateralBuy = QStringLiteral("o_SideUnion_collateralBuy");
const QString collateralSell = QStringLiteral("o_SideUnion_collateralSell");
const QString marginBuy = QStringLiteral("o_SideUnion_marginBuy");
const QString marginSell = QStringLiteral("o_SideUnion_marginSell");
const QString financingBuy = QStringLiteral("o_SideUnion_financingBuy");
const QString financingSell = QStringLiteral("o_SideUnion_financingSell");
const QString marginBuyNormal = QStringLiteral("o_SideUnion_marginBuyNormal");
const QString marginSellNormal = QStringLiteral("o_SideUnion_marginSellNormal");
const QString BondConversion = QStringLiteral("o_SideUnion_BondConversion");
const QString paidRationShare = QStringLiteral("o_SideUnion_paidRationShare");
} // namespace Orlo_Values::SideUnion

namespace Orlo_Values::HKTimeInForce {
const QString InTrade = QStringLiteral("o_HKTimeInForce_InTrade");
const QString BeforeTrade = QStringLiteral("o_HKTimeInForce_BeforeTrade");
} // namespace Orlo_Values::HKTimeInForce

namespace Orlo_Values::FundAccountType {
const QString Credit = QStringLiteral("o_FundAccountType_Credit");
} // namespace Orlo_Values::FundAccountType

namespace Orlo_Values::Exchange {
const QString bj = QStringLiteral("o_Exchange_bj");
const QString HkStockCirculation = QStringLiteral("o_Exchange_HkStockCirculation");
} // namespace Orlo_Values::Exchange

namespace Orlo_Values::MdcSubSecurityType {
const QString ScienTechInnovateBoard = QStringLiteral("o_MdcSubSecurityType_ScienTechInnovateBoard");
const QString BjSelectedStock = QStringLiteral("o_MdcSubSecurityType_BjSelectedStock");
const QString HStcokCirculation = QStringLiteral("o_MdcSubSecurityType_HStcokCirculation");
const QString Reits = QStringLiteral("o_MdcSubSecurityType_Reits");
const QString DirectedConBond = QStringLiteral("o_MdcSubSecurityType_DirectedConBond");
const QString PaidRationBond = QStringLiteral("o_MdcSubSecurityType_PaidRationBond");
const QString PaidRationStock = QStringLiteral("o_MdcSubSecurityType_PaidRationStock");
const QStringList AllBondNoRepurchaseTypeList = { QStringLiteral("o_bond_treasury"),
    QStringLiteral("o_bond_convertible"), DirectedConBond, QStringLiteral("o_bond_corporate") };
const QStringList ConvertableBondTypeList = { QStringLiteral("o_bond_convertible"),
    QStringLiteral("o_bond_exchangeable") };
} // namespace Orlo_Values::MdcSubSecurityType

namespace Orlo_Values::StFlag {
const QString Normal = QStringLiteral("o_StFlag_Normal");
} // namespace Orlo_Values::StFlag

namespace Orlo_Values::ProtocolId {
const QString AutoPlanReduceAgree = QStringLiteral("o_ProtocolId_AutoPlanReduceAgree");
} // namespace Orlo_Values::ProtocolId

const QString OrloPushButton::BtnStyleType::Normal = QStringLiteral("style_normal");
const QString OrloPushButton::BtnStyleType::Highlight = QStringLiteral("style_highlight");
const QString OrloPushButton::BtnStyleType::Text = QStringLiteral("style_text");
