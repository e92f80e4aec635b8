#pragma once

#include "DayIssue.h"

#include <QCoreApplication>
#include <QJsonObject>

/// The issue of a day in words, for the console.
class IssueTexts {
    Q_DECLARE_TR_FUNCTIONS(IssueTexts)

public:
    /// Counts, then a line for each plan that got no instruction, and why the rest was not tried.
    static QString report(const QDate& day, const IssueResult& result);
    /// What would go out for a plan, or why nothing.
    static QString line(const IssueRow& row);
    /// The same: `plan`, `account`, `symbol`, `side` (`buy` or `sell`), `price` in yuan (null without a limit),
    /// `quantity` in displayed units, `amount` in yuan, `reason`, which is null if something goes out, and `missed`,
    /// the last trade day before if it was missed, otherwise null.
    static QJsonObject json(const IssueRow& row);
};
