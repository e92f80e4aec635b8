#pragma once

#include <QDate>

/// Sets the day that the editor takes for today; 2024-05-06, a Monday, until it is set.
void setToday(const QDate& date);
