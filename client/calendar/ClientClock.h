#pragma once

#include "Status.h"

#include <QDate>
#include <QList>
#include <QString>

/// Today as the client's own checks see it: the system's date in local time unless another was set.
QDate clientToday();
/// Sets it for everything that follows; an invalid date goes back to the system's.
void setClientToday(const QDate& today);

/// The last trade day of the Shanghai exchange before a day; the calendar's last one for a day beyond it. Invalid when
/// the calendar does not know the days before.
QDate lastTradeDayBefore(const QDate& day);

/// Every day on which an exchange trades, ascending, from the first year of the calendar that is known without a gap
/// before today's through the last. Worked out once for each exchange and year of today.
Result<QList<QDate>> tradeDatesOf(const QString& exchange);
