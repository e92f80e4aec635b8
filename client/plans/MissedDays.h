#pragma once

#include "StoredPlan.h"
#include "TradeCalendar.h"

/// Trade days of a plan's period that are past, on which it was active, got no instruction and was not refused one.
namespace MissedDays {

/// A plan that becomes active at this time or later, in the market's time, is due on the next day only.
QTime latestStart();

/// All of them, ascending. `handled`: the days with an instruction or a refusal.
QVector<QDate> of(
    const StoredPlan& plan, const QSet<QDate>& handled, const TradeCalendar& calendar, const QDate& today);
/// The last trade day before today, if it was missed; otherwise invalid. `lastDay`: the last day with an instruction or
/// a refusal; invalid if there is none.
QDate last(const StoredPlan& plan, const QDate& lastDay, const TradeCalendar& calendar, const QDate& today);

} // namespace MissedDays
