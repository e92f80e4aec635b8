#pragma once

#include "Security.h"
#include "Status.h"

#include <QMap>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <optional>

/// Prices that a formula names beside the moving averages of `MovingAverages::names`.
namespace PriceItem {
inline const QString previousClose = QStringLiteral("昨收价");
inline const QString upperLimit = QStringLiteral("涨停价");
inline const QString lowerLimit = QStringLiteral("跌停价");
} // namespace PriceItem

/// Every name that a plan's price formula may use.
const QStringList& priceNames();

/// The price of a plan on one day.
struct DayPrice {
    /// In ticks; absent when the plan sets no limit.
    std::optional<qint64> limit;
    /// What the security is worth before the day begins, in ticks.
    qint64 reference = 0;
    /// True when the formula led beyond the day's limit prices and the price is the nearer of them.
    bool cutToLimit = false;
};

/// Works a plan's price out from its mode and formulas. `closes`: the security's closing prices before the day in
/// ticks, oldest first.
Result<DayPrice> dayPrice(
    const QMap<QString, QVariant>& record, const Security& security, const QVector<qint64>& closes);

/// What an order got.
struct Fill {
    /// In displayed units.
    qint64 quantity = 0;
    /// Per unit, in ticks.
    qint64 price = 0;
};

/// Fills an order without an exchange, always the same way: an order without a limit, or with one that is no worse for
/// the market than the reference, is filled at the reference; a limit at most one percent away gets half of its lots
/// at its own price; any other gets nothing.
Fill simulateFill(bool isBuy, const DayPrice& price, qint64 quantity, int lot);
