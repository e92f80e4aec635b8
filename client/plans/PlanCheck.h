#pragma once

#include "AccountDirectory.h"
#include "Market.h"
#include "TradeCalendar.h"

#include <QDate>
#include <QMap>
#include <QVariant>

/// Checks a plan before it is stored. The result is the first broken rule.
namespace PlanCheck {

using Record = QMap<QString, QVariant>;

/// Longest remark in characters.
constexpr int LongestRemark = 200;

/// The client's data for the checks of a record.
struct Known {
    const Market& market;
    const AccountDirectory& accounts;
    const TradeCalendar& calendar;
};

/// Why a record cannot become a new plan; success if it can.
Status creationError(const Record& record, const Known& known);
/// Why a stored plan cannot be changed to a record; success if it can. `today` decides whether the plan has started.
Status changeError(const Record& stored, const Record& record, const QDate& today, const Known& known);

} // namespace PlanCheck
