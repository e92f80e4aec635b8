#include "plans/FillSimulator.h"

#include "plans/DayShare.h"

namespace {

constexpr qint64 percent = 100;

} // namespace

Fill simulateFill(bool isBuy, const DayPrice& price, qint64 quantity, int lot)
{
    if (!price.limit)
        return { quantity, price.reference };
    const qint64 away = isBuy ? price.reference - *price.limit : *price.limit - price.reference;
    if (away <= 0)
        return { quantity, price.reference };
    if (away * percent <= price.reference)
        return { lotsWithin(static_cast<double>(quantity) / 2, lot), *price.limit };
    return {};
}
