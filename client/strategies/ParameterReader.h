#pragma once

#include "StrategyDefinition.h"
#include "StrategyElement.h"
#include "StrategyRemarks.h"

/// Reads one parameter with its values. What a plan cannot use hinders the strategy.
namespace ParameterReader {

/// Limits of times remain as they are written.
StrategyParameter read(const StrategyElement& element, StrategyRemarks& remarks);
/// Converts limits of times to the parameter's time zone.
void convertLimits(StrategyParameter& parameter, StrategyRemarks& remarks);

} // namespace ParameterReader
