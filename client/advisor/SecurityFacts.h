#pragma once

#include "AdvisedPlan.h"
#include "AdvisorRow.h"

/// What the advisor says about the security of a plan.
namespace SecurityFacts {

/// Caption and text: last close, limits of the day, lot, what may be sold, and other plans of the account on it.
AdvisorRows rows(const AdvisedPlan& plan);

/// Whether a stored plan trades in the other direction than the one in the form.
bool isOpposite(const AdvisedPlan& plan, const StoredPlan& other);

} // namespace SecurityFacts
