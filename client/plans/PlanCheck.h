#pragma once

#include "CheckedPlan.h"

/// Checks a plan before it is stored. The result is the first broken rule.
namespace PlanCheck {

/// Longest remark in characters.
constexpr int LongestRemark = 200;

/// Why a record cannot become a new plan; success if it can.
Status creationError(const PlanStore::Record& record, const Known& known);
/// Why a stored plan cannot be changed to a record; success if it can. `used`: what its instructions have filled or
/// issued, in displayed units or yuan.
Status changeError(const PlanStore::Record& stored, const PlanStore::Record& record, double used, const Known& known);

} // namespace PlanCheck
