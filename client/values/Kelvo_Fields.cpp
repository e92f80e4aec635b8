#include "Kelvo_Fields.h"

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
