#pragma once

#include <QDate>
#include <QList>

/// Returns the days from `first` to `last`, both included, that are not trade dates.
QList<QDate> daysWithoutTrade(const QDate& first, const QDate& last, const QList<QDate>& tradeDates);

/// Returns the number of days from `today` to the next trade date: 1 if the list is empty, 0 if it has no later date.
int firstTradingDayOffset(const QDate& today, const QList<QDate>& tradeDates);
