#pragma once

#include <QDate>
#include <QList>

/// The days from `first` to `last` (both included) that are not trade dates.
QList<QDate> daysWithoutTrade(const QDate& first, const QDate& last, const QList<QDate>& tradeDates);

/// Days from `today` to the first trade date after it: 1 when the list is empty, 0 when it holds no later date.
int firstTradingDayOffset(const QDate& today, const QList<QDate>& tradeDates);
