#pragma once

#include <QString>

/// Field keys shared by the client's accounts, securities and plans.
///
/// The values come from the linked platform; whoever uses them compares and stores them only.
namespace Kelvo_Fields {

/// Who trades, and on which account.
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

/// What is traded.
namespace Security {
/// Symbol of the security.
extern const QString symbol;
/// Hong Kong price type, `Orlo_Values::HKTimeInForce`.
extern const QString timeInForce;
/// Key under which older plans kept the Hong Kong price type.
extern const QString transActTime;
/// Quantity of a position that may be sold, in stored units.
extern const QString tradeableQty;
} // namespace Security

} // namespace Kelvo_Fields
