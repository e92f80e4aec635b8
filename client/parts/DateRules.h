#pragma once

#include "Status.h"

#include <QDate>
#include <QList>
#include <QSet>
#include <QString>

#include <functional>

/// Checks whether a date can be chosen.
using DateCheck = std::function<Status(const QDate&)>;

/// Which dates a date field lets the trader choose.
struct DateRules {
    QList<int> exceptDaysOfWeek; ///< 1 Monday to 7 Sunday
    QSet<QDate> exceptDates;
    QDate minimum; ///< invalid: no bound
    QDate maximum; ///< invalid: no bound

    /// Checks whether the trader can choose a date.
    Status check(const QDate& date) const;
};

/// What typed dates are relative to.
struct DateBase {
    QDate today;       ///< a date without a year is this day or later
    QDate countedFrom; ///< "+1" is the first day after this one that can be chosen
};

/// The date that a trader means: "2026-12-04", "20261204", "1204", "12-4", "12/4", "12月4日", "+5", with full-width
/// characters and blanks around it. Whether it can be chosen is only checked for counted days.
Result<QDate> typedDate(const QString& text, const DateBase& base, const DateCheck& check);

/// The date itself if it can be chosen, otherwise the next one, or the last one before it. Invalid if there is none
/// within a year.
QDate nearestChoosable(const QDate& date, const DateCheck& check);
/// The next date in a direction that can be chosen; invalid if there is none within a year.
QDate nextChoosable(const QDate& from, int step, const DateCheck& check);

/// The date of a text in the form yyyy-MM-dd; invalid for any other text.
QDate dateFromText(const QString& text);
/// The text of a date in the form yyyy-MM-dd; empty for an invalid date.
QString dateText(const QDate& date);
