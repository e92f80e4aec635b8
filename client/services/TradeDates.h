#pragma once

#include <QDate>
#include <QList>
#include <QString>

/// Every day on which an exchange trades, ascending, from the first year of the calendar that is known without a gap
/// before today's through the last. `error` is left empty on success and tells the reason otherwise, also while nobody
/// is logged in; the list is then empty. Worked out once for each exchange and year of today.
QList<QDate> tradeDatesOf(const QString& exchange, QString& error);
