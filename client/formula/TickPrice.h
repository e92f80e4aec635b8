#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>

/// Prices in whole ticks; a tick is one unit of the last decimal of a security's price.
namespace TickPrice {

struct Limits {
    qint64 up = 0;
    qint64 down = 0;
};

/// Upper and lower limit price for a previous close, computed in integers, a half tick rounded up, and never less
/// than one tick. `limitPerMille`: 100 means ten percent.
Limits limits(qint64 previousClose, int limitPerMille);

/// A price in yuan to the nearest tick, a half tick rounded up; absent if it is not finite or too large.
std::optional<qint64> fromYuan(double yuan, int pricePrecision);
double toYuan(qint64 ticks, int pricePrecision);
/// The price with as many decimals as the precision.
QString text(qint64 ticks, int pricePrecision);

} // namespace TickPrice
