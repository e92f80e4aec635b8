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

// Codes and keys of this client, which differ from every other client's.

namespace Algo_Fields::AlgoInstContentInfo {
const QString TradingAccount = QStringLiteral("algo.account");
const QString Symbol = QStringLiteral("algo.security");
const QString OrderSide = QStringLiteral("algo.side");
const QString EntrustProp = QStringLiteral("algo.property");
} // namespace Algo_Fields::AlgoInstContentInfo

namespace Algo_Values {
namespace AlgoGlobalType {
const QString instruction = QStringLiteral("one instruction");
}
namespace AlgoOrderSide {
const QString BuyValue = QStringLiteral("algo-buy");
const QString SellValue = QStringLiteral("algo-sell");
} // namespace AlgoOrderSide
} // namespace Algo_Values

namespace AutoPlanField {
namespace BaseField {
const QString autoPlanId = QStringLiteral("plan.id");
const QString orderSide = QStringLiteral("plan.side");
const QString priceModel = QStringLiteral("plan.priceMode");
const QString priceFixed = QStringLiteral("plan.price");
const QString priceFormula1 = QStringLiteral("plan.formula1");
const QString priceFormula2 = QStringLiteral("plan.formula2");
const QString totalQty = QStringLiteral("plan.quantity");
const QString InstMode = QStringLiteral("plan.mode");
const QString expectedUser = QStringLiteral("plan.assignee");
const QString executeUser = QStringLiteral("plan.executor");
const QString beginDate = QStringLiteral("plan.from");
const QString endDate = QStringLiteral("plan.to");
const QString planOtherParam = QStringLiteral("plan.more");
const QString remark = QStringLiteral("plan.note");
const QString tradeAmount = QStringLiteral("more.amount");
const QString dayMaxTradeAmount = QStringLiteral("more.dailyAmount");
const QString algoParam = QStringLiteral("more.algorithm");
const QString algoStrategyName = QStringLiteral("more.algorithmName");
const QString securitySubType = QStringLiteral("more.kind");
const QString JCRatio = QStringLiteral("more.ratio");
const QString JCModel = QStringLiteral("more.reduction");
} // namespace BaseField
namespace Progress {
const QString CurrentQty = QStringLiteral("more.daily");
}
} // namespace AutoPlanField

namespace InstructionTargetType {
const QString QtyOrder = QStringLiteral("by quantity");
const QString AmountOrder = QStringLiteral("by amount");
} // namespace InstructionTargetType

namespace Kelvo_Fields {
namespace UserAccount {
const QString userID = QStringLiteral("who");
const QString tradingAccount = QStringLiteral("account");
const QString securityExchange = QStringLiteral("exchange");
const QString securityAccount = QStringLiteral("holder");
} // namespace UserAccount
namespace Security {
const QString symbol = QStringLiteral("security");
const QString timeInForce = QStringLiteral("more.force");
const QString transActTime = QStringLiteral("more.oldForce");
const QString tradeableQty = QStringLiteral("free");
} // namespace Security
} // namespace Kelvo_Fields

namespace Kelvo_Values {
namespace OrderSide {
const QString buy = QStringLiteral("B");
const QString sell = QStringLiteral("S");
} // namespace OrderSide
namespace Exchange {
const QString sh = QStringLiteral("XSHG");
const QString sz = QStringLiteral("XSHE");
} // namespace Exchange
namespace SymbolPost {
const QString sh = QStringLiteral("@XSHG");
const QString sz = QStringLiteral("@XSHE");
} // namespace SymbolPost
namespace MdcSecurityType {
const QString StockType = QStringLiteral("stock");
const QString BondType = QStringLiteral("bond");
const QString FundType = QStringLiteral("fund");
} // namespace MdcSecurityType
namespace MdcSubSecurityType {
const QString Ashares = QStringLiteral("stock/main");
const QString Gemstock = QStringLiteral("stock/growth");
const QString Smallandmediumstock = QStringLiteral("stock/small");
const QString Assetbackedsecurities = QStringLiteral("bond/backed");
const QString TradingopenindexfundETF = QStringLiteral("fund/index");
} // namespace MdcSubSecurityType
} // namespace Kelvo_Values

namespace OrloConstants {
namespace DateTimeFormatString {
const QString STD_DATE_FORMAT = QStringLiteral("dd.MM.yyyy");
}
namespace DictionaryKey {
const QString SideUnion2AlgoDefines = QStringLiteral("algorithm property");
const QString exchangeChineseName = QStringLiteral("exchange");
} // namespace DictionaryKey
} // namespace OrloConstants

namespace Orlo_Fields {
namespace AutoPlan {
const QString templateCode = QStringLiteral("plan.type");
const QString subType = QStringLiteral("plan.instruction");
} // namespace AutoPlan
namespace Security {
const QString cumAmount = QStringLiteral("filledAmount");
}
} // namespace Orlo_Fields

namespace Orlo_Values {
namespace OrderSide {
const QString buy = QStringLiteral("B");
}
namespace SideUnion {
const QString normalBuy = QStringLiteral("B");
const QString collateralBuy = QStringLiteral("cB");
const QString collateralSell = QStringLiteral("cS");
const QString marginBuy = QStringLiteral("mB");
const QString marginSell = QStringLiteral("mS");
const QString financingBuy = QStringLiteral("fB");
const QString financingSell = QStringLiteral("fS");
const QString marginBuyNormal = QStringLiteral("nB");
const QString marginSellNormal = QStringLiteral("nS");
const QString BondConversion = QStringLiteral("conversion");
const QString paidRationShare = QStringLiteral("rights");
} // namespace SideUnion
namespace HKTimeInForce {
const QString InTrade = QStringLiteral("enhanced");
const QString BeforeTrade = QStringLiteral("auction");
} // namespace HKTimeInForce
namespace FundAccountType {
const QString Credit = QStringLiteral("credit");
}
namespace Exchange {
const QString bj = QStringLiteral("XBEI");
const QString HkStockCirculation = QStringLiteral("XHKG");
} // namespace Exchange
namespace MdcSubSecurityType {
const QString ScienTechInnovateBoard = QStringLiteral("stock/science");
const QString BjSelectedStock = QStringLiteral("stock/beijing");
const QString HStcokCirculation = QStringLiteral("stock/hongkong");
const QString Reits = QStringLiteral("fund/estate");
const QString DirectedConBond = QStringLiteral("bond/directed");
const QString PaidRationBond = QStringLiteral("bond/rights");
const QString PaidRationStock = QStringLiteral("stock/rights");
const QStringList AllBondNoRepurchaseTypeList = { DirectedConBond };
const QStringList ConvertableBondTypeList = { DirectedConBond };
} // namespace MdcSubSecurityType
namespace StFlag {
const QString Normal = QStringLiteral("normal");
}
namespace ProtocolId {
const QString AutoPlanReduceAgree = QStringLiteral("reduction");
}
} // namespace Orlo_Values

const QString OrloPushButton::BtnStyleType::Normal = QStringLiteral("plain");
const QString OrloPushButton::BtnStyleType::Highlight = QStringLiteral("bold");
const QString OrloPushButton::BtnStyleType::Text = QStringLiteral("flat");
