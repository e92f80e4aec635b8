#include "StrategyDefinition.h"

#include <algorithm>

namespace {

template <typename Part> int indexOf(const QList<Part>& parts, QString Part::*key, const QString& wanted)
{
    const auto found =
        std::find_if(parts.cbegin(), parts.cend(), [&](const Part& part) { return part.*key == wanted; });
    return found == parts.cend() ? -1 : static_cast<int>(found - parts.cbegin());
}

} // namespace

const EnumeratedValue* StrategyParameter::valueOf(const QString& id) const
{
    const int index = indexOf(values, &EnumeratedValue::id, id);
    return index < 0 ? nullptr : &values.at(index);
}

QString StrategyControl::radioKey() const
{
    if (type != ControlType::RadioButton)
        return {};
    return radioGroup.isEmpty() ? parameter : radioGroup;
}

bool StrategyControl::takesItems() const
{
    switch (type) {
    case ControlType::Slider:
    case ControlType::DropDownList:
    case ControlType::EditableDropDownList:
    case ControlType::SingleSelectList:
    case ControlType::MultiSelectList:
    case ControlType::CheckBoxList:
    case ControlType::RadioButtonList:
        return true;
    default:
        return false;
    }
}

bool StrategyControl::isClosedList() const
{
    return takesItems() && type != ControlType::Slider && type != ControlType::EditableDropDownList;
}

int StrategyDefinition::parameterIndex(const QString& parameterName) const
{
    return indexOf(parameters, &StrategyParameter::name, parameterName);
}

int StrategyDefinition::controlIndex(const QString& id) const
{
    return indexOf(controls, &StrategyControl::id, id);
}

const StrategyParameter* StrategyDefinition::parameter(const QString& parameterName) const
{
    const int index = parameterIndex(parameterName);
    return index < 0 ? nullptr : &parameters.at(index);
}

const StrategyControl* StrategyDefinition::controlOf(const QString& parameterName) const
{
    const int index = parameterName.isEmpty() ? -1 : indexOf(controls, &StrategyControl::parameter, parameterName);
    return index < 0 ? nullptr : &controls.at(index);
}
