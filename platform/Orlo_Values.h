#pragma once

#include <QString>
#include <QStringList>

/// Codes of the client's trading records.
///
/// The linked platform defines the values. Other code only compares and stores them.
namespace Orlo_Values {

/// Order side in the security service.
namespace OrderSide {
extern const QString buy; ///< a purchase
} // namespace OrderSide

/// Entrust types: side and margin category in one code.
namespace SideUnion {
extern const QString normalBuy;        ///< a purchase without margin
extern const QString collateralBuy;    ///< a purchase of collateral
extern const QString collateralSell;   ///< a sale of collateral
extern const QString marginBuy;        ///< securities bought to return borrowed ones
extern const QString marginSell;       ///< a sale of borrowed securities
extern const QString financingBuy;     ///< a purchase with borrowed money
extern const QString financingSell;    ///< a sale to repay borrowed money
extern const QString marginBuyNormal;  ///< an ordinary purchase on a credit account
extern const QString marginSellNormal; ///< an ordinary sale on a credit account
extern const QString BondConversion;   ///< conversion of a bond into stock
extern const QString paidRationShare;  ///< paid subscription of a rights issue
} // namespace SideUnion

/// Hong Kong connect price types.
namespace HKTimeInForce {
/// Enhanced limit order.
extern const QString InTrade;
/// At-auction limit order.
extern const QString BeforeTrade;
} // namespace HKTimeInForce

/// Asset property of a fund account.
namespace FundAccountType {
/// Credit (margin) account.
extern const QString Credit;
} // namespace FundAccountType

/// Exchange codes, in addition to `Kelvo_Values::Exchange`.
namespace Exchange {
/// Beijing.
extern const QString bj;
/// Hong Kong connect.
extern const QString HkStockCirculation;
} // namespace Exchange

/// Security sub-type codes, in addition to `Kelvo_Values::MdcSubSecurityType`.
namespace MdcSubSecurityType {
/// Stock of the Shanghai science and technology board.
extern const QString ScienTechInnovateBoard;
/// Beijing selected stock.
extern const QString BjSelectedStock;
/// Hong Kong connect stock.
extern const QString HStcokCirculation;
/// Real-estate investment trust fund.
extern const QString Reits;
/// Directed convertible bond.
extern const QString DirectedConBond;
/// Bond rights issue.
extern const QString PaidRationBond;
/// Stock rights issue.
extern const QString PaidRationStock;
/// All bond sub-types except repurchases.
extern const QStringList AllBondNoRepurchaseTypeList;
/// Convertible bond sub-types.
extern const QStringList ConvertableBondTypeList;
} // namespace MdcSubSecurityType

/// Special-treatment flag of a security.
namespace StFlag {
/// Not under special treatment.
extern const QString Normal;
} // namespace StFlag

/// Agreements that a client signs.
namespace ProtocolId {
/// Risk disclosure of holdings-reduction plans.
extern const QString AutoPlanReduceAgree;
} // namespace ProtocolId

} // namespace Orlo_Values
