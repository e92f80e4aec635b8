#pragma once

#include "StrategyDefinition.h"
#include "StrategyElement.h"
#include "StrategyRemarks.h"

/// Reads one parameter with its values. What a plan cannot use hinders the strategy.
namespace ParameterReader {

StrategyParameter read(const StrategyElement& element, StrategyRemarks& remarks);

} // namespace ParameterReader
