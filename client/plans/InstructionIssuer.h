#pragma once

#include "Status.h"

#include <QDate>
#include <QStringList>
#include <QVector>

/// What came of a day's issuing.
struct IssueResult {
    /// Ids of the new instructions.
    QStringList issued;
    /// Plans that had their instruction of the day before.
    QStringList alreadyIssued;

    struct Skipped {
        QString planId;
        Status reason;
    };
    /// Plans of the day's period that got no instruction, and why.
    QVector<Skipped> skipped;
};

/// Turns every plan whose period covers a trade day into its instruction of that day, and fills it by a simulator.
///
/// A quantity plan issues whole lots, an amount plan the whole lots that its amount of the day buys, both within the
/// daily maximum and what is left. Instructions of earlier days that are still open end first and give back what was
/// not filled. The day is one transaction; issuing it again adds nothing. Each plan that changed is announced by
/// `PlanEvents`.
class InstructionIssuer {
public:
    /// Fails when nothing was issued at all.
    static Result<IssueResult> issueDay(const QDate& day);
};
