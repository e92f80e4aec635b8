#pragma once

#include "Market.h"
#include "PlanRights.h"
#include "TradeCalendar.h"

#include <QDate>
#include <QMap>
#include <QVariant>

/// Checks a plan before it is stored. The result is the first broken rule.
namespace PlanCheck {

using Record = QMap<QString, QVariant>;

/// Longest remark in characters.
constexpr int LongestRemark = 200;

/// The data for the checks of a record, as stored at the time of the check.
struct Known {
    const Market& market;
    const TradeCalendar& calendar;
    QDate today;
    /// Id of the user who sends the record.
    QString user;
    /// The user's rights for the account and instruction type of the record.
    PlanRights rights;
    /// Closing prices of the record's security before today in ticks, oldest first.
    QVector<qint64> closes;
    /// What can be sold of the record's security, in displayed units.
    double sellable = 0;
};

/// Why a record cannot become a new plan; success if it can.
Status creationError(const Record& record, const Known& known);
/// Why a stored plan cannot be changed to a record; success if it can. `used`: what its instructions have filled or
/// issued, in displayed units or yuan.
Status changeError(const Record& stored, const Record& record, double used, const Known& known);

} // namespace PlanCheck
