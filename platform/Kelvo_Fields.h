#pragma once

#include <QString>

/// Field keys shared by the client's accounts, securities and plans.
///
/// The linked platform defines the values. Other code only compares and stores them.
namespace Kelvo_Fields {

/// User and account.
namespace UserAccount {
/// Id of the user.
extern const QString userID;
/// Trading account.
extern const QString tradingAccount;
/// Exchange code of the security.
extern const QString securityExchange;
/// Security (shareholder) account on that exchange.
extern const QString securityAccount;
} // namespace UserAccount

/// Security and position.
namespace Security {
/// Symbol of the security.
extern const QString symbol;
/// Hong Kong price type, `Orlo_Values::HKTimeInForce`.
extern const QString timeInForce;
/// Key under which older plans store the Hong Kong price type.
extern const QString transActTime;
/// Quantity of a position that can be sold, in stored units.
extern const QString tradeableQty;
} // namespace Security

} // namespace Kelvo_Fields
