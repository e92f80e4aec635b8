#include "StrategyDefinition.h"

#include <algorithm>

const StrategyParameter* StrategyDefinition::parameter(const QString& parameterName) const
{
    const auto found = std::find_if(parameters.cbegin(), parameters.cend(),
        [&](const StrategyParameter& candidate) { return candidate.name == parameterName; });
    return found == parameters.cend() ? nullptr : &*found;
}

const StrategyControl* StrategyDefinition::controlOf(const QString& parameterName) const
{
    const auto found = std::find_if(controls.cbegin(), controls.cend(),
        [&](const StrategyControl& candidate) { return candidate.parameter == parameterName; });
    return found == controls.cend() ? nullptr : &*found;
}
