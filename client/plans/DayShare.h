#pragma once

#include <QString>
#include <QtGlobal>

/// The part of a plan that is issued on one day. Quantities are in displayed units, amounts in yuan.
struct PlanShare {
    /// Plan type code, `PlanCodes::PlanType`.
    QString planType;
    /// The target of the whole plan.
    double total = 0;
    /// Largest share of a day, or the share of every day for a plan with equal shares; 0 means no limit.
    double perDay = 0;
    /// Issued so far and not given back.
    double used = 0;
    /// Trade days from this one to the plan's last, both included; at least 1. Used for average plans only.
    int daysLeft = 1;
    /// Part of the total that a reduction sells per day, 0 to 1. Used for reductions only.
    double ratio = 0;
};

/// The share of the day before rounding to lots: at most the rest of the plan, at least 0.
double dayShare(const PlanShare& plan);

/// The largest whole number of lots within a quantity; 0 for a lot below 1.
qint64 lotsWithin(double quantity, int lot);
/// The share of the day in whole lots. An average plan rounds up if the rest of the plan and the day's maximum allow
/// it, so that it ends on its last day; every other plan rounds down.
qint64 dayQuantity(const PlanShare& plan, int lot);
