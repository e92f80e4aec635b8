#pragma once

#include "EditReader.h"

/// Reads the state rules of controls.
namespace StateRuleReader {

/// Reads the rules of one control of the strategy.
void read(const StrategyElement& control, int index, EditReader& edits, StrategyDefinition& strategy,
    StrategyRemarks& remarks);

/// Computes `StrategyDefinition::settleOrder`. Refuses rules that set values in a circle.
void order(StrategyDefinition& strategy, StrategyRemarks& remarks);

} // namespace StateRuleReader
