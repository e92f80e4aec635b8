#pragma once

#include "AlertStore.h"
#include "TradeCalendar.h"

/// The days that alerts of a day are about: the last five trade days of each exchange, and the next one.
AlertDays alertDays(const TradeCalendar& calendar, const QDate& today);
