#pragma once

#include "Status.h"

#include <QTime>

/// The times of a trade day at which exchanges take orders, in the market's time.
///
/// Source: the trading rules of the Shanghai, Shenzhen and Beijing stock exchanges (from 9:15 to 15:00), and of stock
/// connect (from 9:00 to 16:10, when Hong Kong's closing auction ends). The breaks at noon are included, because orders
/// wait for their end.
namespace TradeHours {

/// Fails at a time at which the exchange takes no orders. An exchange that is not known has the hours of the mainland.
Status check(const QString& exchange, const QTime& time);

} // namespace TradeHours
