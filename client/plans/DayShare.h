#pragma once

#include <QString>
#include <QtGlobal>

/// How much of a plan one day takes. Quantities are in displayed units, amounts in yuan.
struct PlanShare {
    /// Plan type code, `PlanCodes::PlanType`.
    QString planType;
    /// Target of the whole plan.
    double total = 0;
    /// Largest share of a day, and the share of every day for a plan of same elements; 0 does not restrict.
    double perDay = 0;
    /// Already issued and not given back.
    double used = 0;
    /// Trade days from this one to the plan's last, both included; at least 1. Read for average plans only.
    int daysLeft = 1;
    /// Part of the total that a reduction sells a day, 0 to 1. Read for reductions only.
    double ratio = 0;
};

/// The share of the day before it is cut to lots: never more than is left, never below 0.
double dayShare(const PlanShare& plan);

/// The largest whole number of lots within a quantity; 0 for a lot below 1.
qint64 lotsWithin(double quantity, int lot);
/// The share of the day in whole lots. An average plan rounds up as far as what is left and the day's maximum allow, so
/// that it ends on its last day; every other plan rounds down.
qint64 dayQuantity(const PlanShare& plan, int lot);
