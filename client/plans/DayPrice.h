#pragma once

#include "PlanStore.h"
#include "Security.h"
#include "Status.h"

#include <QHash>
#include <QStringList>
#include <QVector>

#include <optional>

/// The price names of formulas besides the moving averages of `MovingAverages::names`.
namespace PriceItem {
inline const QString PreviousClose = QStringLiteral("昨收价");
inline const QString UpperLimit = QStringLiteral("涨停价");
inline const QString LowerLimit = QStringLiteral("跌停价");
} // namespace PriceItem

/// Every name that a plan's price formula may use.
const QStringList& priceNames();

/// The prices of a day by their names, in yuan. `closes`: as for `dayPrice`, and not empty. A limit price that the
/// security does not have is missing, and an average for which there are too few closes.
QHash<QString, double> namedPrices(const Security& security, const QVector<qint64>& closes);
/// The result of a plan's formulas in yuan, before it becomes a price of the day. The plan sets a limit.
Result<double> formulaResult(const PlanStore::Record& record, const QHash<QString, double>& prices);

/// The price of a plan on one day.
struct DayPrice {
    /// In ticks; absent if the plan sets no limit.
    std::optional<qint64> limit;
    /// The close before the day, in ticks.
    qint64 reference = 0;
    /// True if the result of the formula was beyond a limit price of the day, which is then the price.
    bool cutToLimit = false;
};

/// The price of a day for a result of formulas, cut to the limit prices of the day. `reference`: the close before it.
Result<DayPrice> limitedPrice(double yuan, qint64 reference, const Security& security);
/// Computes a plan's price from its mode and formulas. `closes`: the security's closing prices before the day in ticks,
/// oldest first.
Result<DayPrice> dayPrice(const PlanStore::Record& record, const Security& security, const QVector<qint64>& closes);

/// The fill of an order.
struct Fill {
    /// In displayed units.
    qint64 quantity = 0;
    /// Per unit, in ticks.
    qint64 price = 0;
};

/// Simulates the fill of an order, deterministically. An order without a limit, or with a limit at least as good for
/// the market as the reference, is filled at the reference. With a limit at most one percent worse, half of its lots
/// are filled at the limit. Any other order is not filled.
Fill simulateFill(bool isBuy, const DayPrice& price, qint64 quantity, int lot);
