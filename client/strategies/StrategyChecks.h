#pragma once

#include "StrategyDefinition.h"
#include "StrategyRemarks.h"

/// Checks of a strategy that concern more than one element.
namespace StrategyChecks {

/// Checks the parameters, connects the controls with them and converts the controls' defaults.
void prepare(StrategyDefinition& strategy, StrategyRemarks& remarks);

/// Checks what every plan needs: a way to fill in each parameter and to send it.
void check(const StrategyDefinition& strategy, StrategyRemarks& remarks);

} // namespace StrategyChecks
