#pragma once

#include "Status.h"

#include <QDate>
#include <QList>
#include <QString>

/// Today for the client's own checks: the system's date in local time, unless another date was set.
QDate clientToday();
/// Sets the client's date; an invalid date restores the system's.
void setClientToday(const QDate& today);

/// The last trade day of the Shanghai exchange before a day; the calendar's last trade day for a day beyond it. Invalid
/// if the calendar does not know the days before.
QDate lastTradeDayBefore(const QDate& day);

/// Every day on which an exchange trades, ascending, from the first year of the calendar that is known without a gap
/// before today's through the last. Computed once for each exchange and year of today.
Result<QList<QDate>> tradeDatesOf(const QString& exchange);
