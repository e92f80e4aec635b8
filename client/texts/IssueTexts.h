#pragma once

#include "DayIssue.h"

#include <QJsonObject>

/// The issue of a day in words, for the console.
namespace IssueTexts {

/// Counts, then a line for each plan that got no instruction, and why the rest was not tried.
QString report(const QDate& day, const IssueResult& result);
/// What would go out for a plan, or why nothing.
QString line(const IssueRow& row);
/// The same: `plan`, `account`, `symbol`, `side` (`buy` or `sell`), `price` in yuan (null without a limit), `quantity`
/// in displayed units, `amount` in yuan, `reason`, which is null if something goes out, and `missed`, the last trade
/// day before if it was missed, otherwise null.
QJsonObject json(const IssueRow& row);

} // namespace IssueTexts
