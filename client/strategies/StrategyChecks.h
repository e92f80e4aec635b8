#pragma once

#include "StrategyDefinition.h"
#include <QString>

/// First thing that does not fit together in a strategy; `reason` is empty when everything does.
struct StrategyFlaw {
    QString reason;
    qint64 line = 0;
};

/// Checks of one strategy that is read whole: what no single element can tell.
namespace StrategyChecks {

/// Limits, constant and enumerated values of one parameter.
StrategyFlaw checkParameter(const StrategyParameter& parameter);

/// One control against its parameter: kind, entries, default and steps. Without a parameter of its name that is the
/// flaw.
StrategyFlaw checkControl(const StrategyControl& control, const StrategyDefinition& strategy);

/// The whole strategy, every parameter and control included.
StrategyFlaw check(const StrategyDefinition& strategy);

} // namespace StrategyChecks
