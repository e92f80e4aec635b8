#pragma once

#include "StrategyDefinition.h"
#include "StrategyRemarks.h"

/// Checks of controls against their parameters.
namespace ControlChecks {

/// Checks names, kinds, entries, steps and defaults, and converts the defaults into values of the controls.
void prepare(StrategyDefinition& strategy, StrategyRemarks& remarks);

} // namespace ControlChecks
