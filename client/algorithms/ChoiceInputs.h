#pragma once

#include "ControlInput.h"

/// Inputs that offer the entries of a control.
namespace ChoiceInputs {

void make(ControlInput& input, const StrategyControl& control, QWidget* parent, const std::function<void()>& changed);

} // namespace ChoiceInputs
