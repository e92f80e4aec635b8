#pragma once

#include "tagUserAccountInfo.h"

#include <QList>
#include <QMap>
#include <QVariant>

/// Positions of the client's accounts.
class BusinessDataInterface {
public:
    BusinessDataInterface() = delete;

    /// Returns the positions of an account in one security, each as a field map with
    /// `Kelvo_Fields::Security::tradeableQty` in stored units. `currency`, `portfolio`, `strategy` and `seat` filter
    /// the positions; an empty text does not filter. Returns an empty list if there are no positions.
    static QList<QMap<QString, QVariant>> GetPositionListByAccount(const tagUserAccountInfo& account,
        const QString& securityAccount, const QString& symbol, const QString& currency, const QString& portfolio,
        const QString& strategy, const QString& seat);
};
