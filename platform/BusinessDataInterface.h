#pragma once

#include "tagUserAccountInfo.h"
#include <QList>
#include <QMap>
#include <QVariant>

/// Positions of the client's accounts.
class BusinessDataInterface {
public:
    BusinessDataInterface() = delete;

    /// The positions of an account in one security, each as a field map (`Kelvo_Fields::Security::tradeableQty` in
    /// stored units). The four last texts narrow by currency, portfolio, strategy and seat; empty does not
    /// narrow. Empty when there is none.
    static QList<QMap<QString, QVariant>> GetPositionListByAccount(const tagUserAccountInfo& account,
        const QString& securityAccount, const QString& symbol, const QString& currency, const QString& portfolio,
        const QString& strategy, const QString& seat);
};
