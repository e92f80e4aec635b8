#pragma once

#include "Status.h"

#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>

/// The date at the markets at a moment.
QDate marketDay(const QDateTime& moment);
/// Makes the market's time the local time of the process, for code that reads the system's local date. Call it before
/// other threads start.
void useMarketTime();

/// Today for the client: the market's day, whatever the machine's time zone, unless another time was set.
QDate clientToday();
/// Now for the client, in the market's time.
QDateTime clientNow();
/// Sets the client's clock; an invalid time restores the system's.
void setClientTime(const QDateTime& now);
/// Sets the client's clock to noon of a market's day; an invalid date restores the system's.
void setClientToday(const QDate& today);

/// The last trade day of the Shanghai exchange before a day; the calendar's last trade day for a day beyond it. Invalid
/// if the calendar does not know the days before.
QDate lastTradeDayBefore(const QDate& day);

/// Every day on which an exchange trades, ascending, from the first year of the calendar that is known without a gap
/// before today's through the last. Computed once for each exchange, year of today and version of
/// the calendar.
Result<QList<QDate>> tradeDatesOf(const QString& exchange);

/// Fails from 90 days before the calendar's last known day, and if the calendar lacks a file of closures.
Status checkCalendar(const QDate& today);
