#pragma once

#include "Status.h"
#include "StrategyDefinition.h"

/// Checks of a strategy that concern more than one element. Each returns the first error with its line of the file.
namespace StrategyChecks {

/// Checks limits, constant and enumerated values of a parameter.
Status checkParameter(const StrategyParameter& parameter);

/// Checks that the control has a parameter and fits it: kind, entries, default and steps.
Status checkControl(const StrategyControl& control, const StrategyDefinition& strategy);

/// Checks the whole strategy, including its parameters and controls.
Status check(const StrategyDefinition& strategy);

/// `error` with its line of the file.
Status errorAt(qint64 line, const Status& error);

} // namespace StrategyChecks
