#pragma once

#include "StrategyDefinition.h"

/// Puts the texts of one of the client's own strategies into the program's language. Those of other files have one
/// language, their own.
void translateBuiltIn(StrategyDefinition& strategy);
