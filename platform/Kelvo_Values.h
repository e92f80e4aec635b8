#pragma once

#include <QString>

/// Codes shared by the client's accounts, securities and plans.
///
/// The linked platform defines the values. Other code only compares and stores them.
namespace Kelvo_Values {

/// Order side of a plan.
namespace OrderSide {
extern const QString buy;  ///< a purchase
extern const QString sell; ///< a sale
} // namespace OrderSide

/// Exchange codes.
namespace Exchange {
/// Shanghai.
extern const QString sh;
/// Shenzhen.
extern const QString sz;
} // namespace Exchange

/// Suffixes of symbols, by exchange.
namespace SymbolPost {
/// Shanghai.
extern const QString sh;
/// Shenzhen.
extern const QString sz;
} // namespace SymbolPost

/// Security type codes.
namespace MdcSecurityType {
extern const QString StockType; ///< stocks
extern const QString BondType;  ///< bonds
extern const QString FundType;  ///< funds
} // namespace MdcSecurityType

/// Security sub-type codes.
namespace MdcSubSecurityType {
/// Main board A-share.
extern const QString Ashares;
/// Growth enterprise board stock.
extern const QString Gemstock;
/// Small and medium board stock.
extern const QString Smallandmediumstock;
/// Asset-backed security.
extern const QString Assetbackedsecurities;
/// Exchange-traded open index fund.
extern const QString TradingopenindexfundETF;
} // namespace MdcSubSecurityType

} // namespace Kelvo_Values
