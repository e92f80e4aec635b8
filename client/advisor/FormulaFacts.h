#pragma once

#include "AdvisedPlan.h"
#include "AdvisorRow.h"

/// What the advisor says about the price of a plan.
namespace FormulaFacts {

/// The price of the next day as one sentence, or why there is none; empty while the closes are being read.
QString sentence(const AdvisedPlan& plan);
/// Whether the formulas give a price, as far as it is known.
bool isUsable(const AdvisedPlan& plan);
/// Whether the result of the formulas is between two ticks. The plan has a price.
bool isOffTick(const AdvisedPlan& plan);
/// Why the price is not the result of the formulas: the limit that it is cut to; empty if it is not cut.
QString cut(const AdvisedPlan& plan);

/// Name, value and date of every price that a formula may use, with the name as key.
AdvisorRows rows(const AdvisedPlan& plan);
AdvisorColumns columns();

} // namespace FormulaFacts
