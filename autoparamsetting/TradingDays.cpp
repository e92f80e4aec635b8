#include "TradingDays.h"

#include <QSet>

#include <algorithm>

QList<QDate> daysWithoutTrade(const QDate& first, const QDate& last, const QList<QDate>& tradeDates)
{
    const QSet<QDate> trading(tradeDates.cbegin(), tradeDates.cend());
    QList<QDate> days;
    for (QDate day = first; day <= last; day = day.addDays(1)) {
        if (!trading.contains(day))
            days.append(day);
    }
    return days;
}

int firstTradingDayOffset(const QDate& today, const QList<QDate>& tradeDates)
{
    if (tradeDates.isEmpty())
        return 1;
    QDate first;
    for (const QDate& date : tradeDates) {
        if (date > today && (!first.isValid() || date < first))
            first = date;
    }
    return first.isValid() ? static_cast<int>(today.daysTo(first)) : 0;
}
