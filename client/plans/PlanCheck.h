#pragma once

#include "AccountDirectory.h"
#include "Market.h"
#include "TradeCalendar.h"

#include <QDate>
#include <QMap>
#include <QVariant>

/// What a plan must satisfy before it is stored. The first rule that it breaks is the answer.
namespace PlanCheck {

using Record = QMap<QString, QVariant>;

/// Longest remark in characters.
constexpr int longestRemark = 200;

/// What the client knows that records are checked against.
struct Known {
    const Market& market;
    const AccountDirectory& accounts;
    const TradeCalendar& calendar;
};

/// Why a record cannot become a new plan; success when it can.
Status creationError(const Record& record, const Known& known);
/// Why a stored plan cannot be changed to a record; success when it can. `today` decides whether the plan has started.
Status changeError(const Record& stored, const Record& record, const QDate& today, const Known& known);

} // namespace PlanCheck
