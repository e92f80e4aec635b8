#pragma once

#include "StrategyDefinition.h"

#include <QWidget>

#include <functional>

/// The input of one control, or what a control without input shows.
struct ControlInput {
    int control = 0;             ///< index in the strategy
    StrategyParameter parameter; ///< its parameter; a nameless one for a control that has none
    QWidget* widget = nullptr;
    QWidget* lastFocus = nullptr;   ///< the widget itself unless it consists of several; null without input
    std::function<QString()> value; ///< the control's value, see `StrategyControl`
    std::function<void(const QString&)> setValue;
    std::function<void(int lots, int decimals)> setSteps; ///< lot and decimals of the security's price; may be null
    QVector<QWidget*> row;  ///< everything that belongs to the control, the widget included
    QString shown;          ///< the value that was set or entered last
    bool isEntered = false; ///< the trader or a plan has given the value, which may be empty

    bool isInput() const { return lastFocus != nullptr; }
};

/// Makes inputs.
namespace ControlInputs {

/// Whether a label has a caption beside its value. A label without a value shows its caption itself.
bool isLabelOfValue(const StrategyControl& control);

/// `changed` is called when the input's value changes, also by `setValue`.
ControlInput make(
    const StrategyDefinition& strategy, int control, QWidget* parent, const std::function<void()>& changed);

} // namespace ControlInputs
