#pragma once

#include "Status.h"

#include <QDate>
#include <QStringList>
#include <QVector>

/// The result of issuing a day.
struct IssueResult {
    /// Ids of the new instructions.
    QStringList issued;
    /// Plans that already had an instruction of the day.
    QStringList alreadyIssued;

    struct Skipped {
        QString planId;
        Status reason;
    };
    /// Plans of the day's period that got no instruction, and why.
    QVector<Skipped> skipped;
};

/// Creates the instructions of a trade day, one for every plan with the day in its period, and simulates their fills.
///
/// A quantity plan issues whole lots, an amount plan the whole lots that its amount of the day buys, both at most the
/// daily maximum and the rest of the plan. First ends open instructions of earlier days, which give back their unfilled
/// part. The day is one transaction; issuing it again has no effect. `PlanEvents` reports each changed plan.
class InstructionIssuer {
public:
    /// Fails if nothing was issued at all.
    static Result<IssueResult> issueDay(const QDate& day);
};
