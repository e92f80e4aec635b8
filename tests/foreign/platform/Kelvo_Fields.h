#pragma once

#include <QString>

namespace Kelvo_Fields {
namespace UserAccount {
inline const QString userID = QStringLiteral("who");
inline const QString tradingAccount = QStringLiteral("account");
inline const QString securityExchange = QStringLiteral("exchange");
inline const QString securityAccount = QStringLiteral("holder");
} // namespace UserAccount
namespace Security {
inline const QString symbol = QStringLiteral("security");
inline const QString timeInForce = QStringLiteral("more.force");
inline const QString transActTime = QStringLiteral("more.oldForce");
inline const QString tradeableQty = QStringLiteral("free");
} // namespace Security
} // namespace Kelvo_Fields
