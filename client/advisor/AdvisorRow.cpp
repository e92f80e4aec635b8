#include "AdvisorRow.h"

#include <QLocale>

QString Advisor::number(double value, int decimals)
{
    // The C locale's digits, with separators.
    static const QLocale locale(QLocale::English, QLocale::UnitedStates);
    return locale.toString(value, 'f', decimals);
}

QString Advisor::withUnit(double value, bool isAmount)
{
    constexpr int YuanDecimals = 2;
    return isAmount ? tr("%1元").arg(number(value, YuanDecimals)) : tr("%1股").arg(number(value));
}
