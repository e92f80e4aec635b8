#pragma once

#include "plans/InstructionIssuer.h"

#include <QString>

/// What came of a day's issuing, for the trader: counts, then a line for each plan that was left out.
QString issueReport(const QDate& day, const IssueResult& result);
