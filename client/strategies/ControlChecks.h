#pragma once

#include "StrategyDefinition.h"
#include "StrategyRemarks.h"

/// Checks of controls against their parameters.
namespace ControlChecks {

/// Gives parameters without a time zone that of their clocks.
void takeZones(StrategyDefinition& strategy);
/// Checks names, kinds, entries, steps and defaults, and converts the defaults into values of the controls.
void prepare(StrategyDefinition& strategy, StrategyRemarks& remarks);

} // namespace ControlChecks
