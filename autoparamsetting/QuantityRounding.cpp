#include "QuantityRounding.h"

#include <QDebug>

#include <cmath>

bool isZero(double value)
{
    return std::abs(value) <= NumberTolerance;
}

qint64 roundToWhole(double value)
{
    constexpr double Outwards = 1e-6;
    return static_cast<qint64>(std::trunc(value < -NumberTolerance ? value - Outwards : value + Outwards));
}

qint32 truncateToInt32(double value)
{
    return static_cast<qint32>(value);
}

int usableDisplayFactor(int factor, const char* caller)
{
    if (factor != 0)
        return factor;
    qWarning().noquote() << caller << "display factor 0 counts as 1";
    return 1;
}

qint32 storedQuantity(double displayed, int factor)
{
    return truncateToInt32(displayed) / factor;
}
