#include "AdvisorRow.h"

#include <QLocale>

QString Advisor::number(double value, int decimals)
{
    // The C locale's digits, with separators.
    static const QLocale locale(QLocale::English, QLocale::UnitedStates);
    return locale.toString(value, 'f', decimals);
}
