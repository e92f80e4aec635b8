#pragma once

#include <QStringList>
#include <QVector>

#include <optional>

/// Simple moving averages over closing prices.
namespace MovingAverages {

/// "MA5", "MA10", "MA20", "MA60", "MA120" and "MA250", in this order.
const QStringList& names();
/// The averages that need at most this number of closes, in the order of `names`.
QStringList available(int closes);
/// The average of the last closes in yuan, not rounded; absent if the name is unknown or there are too few closes.
std::optional<double> value(const QString& name, const QVector<qint64>& ticks, int pricePrecision);

} // namespace MovingAverages
