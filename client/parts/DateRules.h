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

    /// Whether the trader can choose a date.
    Status check(const QDate& date) const;
};

/// The date that a text in the form yyyy-MM-dd stands for; invalid when it stands for none.
QDate dateFromText(const QString& text);
/// The text of a date in the form yyyy-MM-dd; empty for an invalid date.
QString dateText(const QDate& date);
