#pragma once

#include "Status.h"
#include "StrategyDefinition.h"

/// Checks of one strategy that has been read whole: what concerns more than one element. Each returns the first error
/// with the line of the file.
namespace StrategyChecks {

/// Limits, constant and enumerated values of one parameter.
Status checkParameter(const StrategyParameter& parameter);

/// One control against its parameter: that there is one, kind, entries, default and steps.
Status checkControl(const StrategyControl& control, const StrategyDefinition& strategy);

/// The whole strategy, every parameter and control included.
Status check(const StrategyDefinition& strategy);

/// `error` in a line of the file.
Status errorAt(qint64 line, const Status& error);

} // namespace StrategyChecks
