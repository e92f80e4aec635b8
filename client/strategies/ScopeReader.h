#pragma once

#include "StrategyElement.h"
#include "StrategyRemarks.h"
#include "StrategyScope.h"

/// Reads the securities for which a strategy is meant.
namespace ScopeReader {

/// Reads `Regions`, `Markets` or `SecurityTypes` into the scope. Returns false for other elements.
bool read(const StrategyElement& element, StrategyScope& scope, StrategyRemarks& remarks);

} // namespace ScopeReader
