#include "TickPrice.h"

#include <cmath>

namespace {

constexpr qint64 Thousand = 1000;
// Above this, a double cannot represent every number of ticks.
constexpr double LargestTicks = 9.0e15;

qint64 share(qint64 ticks, qint64 perMille)
{
    return qMax<qint64>(1, (ticks * perMille + Thousand / 2) / Thousand);
}

double ticksPerYuan(int pricePrecision)
{
    double ticks = 1;
    for (int i = 0; i < pricePrecision; ++i)
        ticks *= 10;
    return ticks;
}

} // namespace

TickPrice::Limits TickPrice::limits(qint64 previousClose, int limitPerMille)
{
    return { share(previousClose, Thousand + limitPerMille), share(previousClose, Thousand - limitPerMille) };
}

std::optional<qint64> TickPrice::fromYuan(double yuan, int pricePrecision)
{
    const double ticks = yuan * ticksPerYuan(pricePrecision);
    if (!std::isfinite(ticks) || std::abs(ticks) > LargestTicks)
        return std::nullopt;
    // 1.265 is stored a little below its value and must still be rounded up.
    constexpr double Tolerance = 1e-6;
    return static_cast<qint64>(std::floor(ticks + 0.5 + Tolerance));
}

double TickPrice::toYuan(qint64 ticks, int pricePrecision)
{
    return static_cast<double>(ticks) / ticksPerYuan(pricePrecision);
}

QString TickPrice::text(qint64 ticks, int pricePrecision)
{
    return QString::number(toYuan(ticks, pricePrecision), 'f', pricePrecision);
}
