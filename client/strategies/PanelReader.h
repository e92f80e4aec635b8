#pragma once

#include "StrategyDefinition.h"
#include "StrategyElement.h"
#include "StrategyRemarks.h"

/// Reads the layout of a strategy: its panels and controls.
namespace PanelReader {

/// Appends panels and controls. State rules are read later, when all controls are known.
void read(const StrategyElement& layout, StrategyDefinition& strategy, StrategyRemarks& remarks);

} // namespace PanelReader
