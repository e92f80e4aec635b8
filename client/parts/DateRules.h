#pragma once

#include "Status.h"

#include <QDate>
#include <QList>
#include <QSet>
#include <QString>

/// Which dates a date field lets the trader choose.
struct DateRules {
    QList<int> exceptDaysOfWeek; ///< 1 Monday to 7 Sunday
    QSet<QDate> exceptDates;
    QDate minimum; ///< invalid: no bound
    QDate maximum; ///< invalid: no bound

    /// Checks whether the trader can choose a date.
    Status check(const QDate& date) const;
};

/// The date of a text in the form yyyy-MM-dd; invalid for any other text.
QDate dateFromText(const QString& text);
/// The text of a date in the form yyyy-MM-dd; empty for an invalid date.
QString dateText(const QDate& date);
