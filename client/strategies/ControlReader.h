#pragma once

#include "StrategyDefinition.h"
#include "StrategyElement.h"
#include "StrategyRemarks.h"

/// Reads one control with its entries.
namespace ControlReader {

/// Does not read the state rules. Values are those of the file.
StrategyControl read(const StrategyElement& element, StrategyRemarks& remarks);

} // namespace ControlReader
