#include "ControlChecks.h"

#include "ControlValue.h"
#include "ParameterTypes.h"
#include "ParameterValue.h"

#include <QSet>

namespace {

bool isText(const StrategyParameter& parameter)
{
    return ParameterTypes::of(parameter.type).family == ParameterTypeInfo::Text;
}

bool fitsButton(const StrategyControl& control, const StrategyParameter& parameter)
{
    const bool hasIds = !control.checkedId.isEmpty() || !control.uncheckedId.isEmpty();
    return hasIds || parameter.type == ParameterType::Boolean;
}

bool fits(const StrategyControl& control, const StrategyParameter& parameter)
{
    switch (control.type) {
    case ControlType::Label:
    case ControlType::TextField:
    case ControlType::HiddenField:
        return true;
    case ControlType::CheckBox:
    case ControlType::RadioButton:
        return fitsButton(control, parameter);
    case ControlType::SingleSpinner:
    case ControlType::DoubleSpinner:
        return ParameterTypes::isNumber(parameter.type) || (parameter.values.isEmpty() && isText(parameter));
    case ControlType::Clock:
        return parameter.values.isEmpty()
            && (ParameterTypes::isTime(parameter.type) || ParameterTypes::hasDate(parameter.type) || isText(parameter));
    case ControlType::MultiSelectList:
    case ControlType::CheckBoxList:
        return ParameterTypes::isList(parameter.type) || parameter.type == ParameterType::String;
    case ControlType::Slider:
        return !control.items.isEmpty() || ParameterTypes::isNumber(parameter.type) || isText(parameter);
    default:
        return true;
    }
}

Status checkItems(const StrategyControl& control, const StrategyParameter* parameter)
{
    if (!control.takesItems() && !control.items.isEmpty())
        return { Error::ListItemsOfOtherType, { control.id } };
    QSet<QString> ids;
    QSet<QString> known;
    if (parameter) {
        for (const EnumeratedValue& value : parameter->values)
            known.insert(value.id);
    }
    for (const EnumeratedValue& item : control.items) {
        if (ids.contains(item.id))
            return { Error::DuplicateListItem, { control.id, item.id } };
        ids.insert(item.id);
        if (parameter && !known.contains(item.id))
            return { Error::UnknownEnumId, { control.id, item.id, parameter->name } };
        // Several ids are separated by spaces.
        if (control.isMultiple() && item.id.contains(QLatin1Char(' ')))
            return { Error::AttributeNotName, { QStringLiteral("enumID"), item.id } };
    }
    return {};
}

Status checkButton(const StrategyControl& control, const StrategyParameter* parameter)
{
    for (const QString& id : { control.checkedId, control.uncheckedId }) {
        if (parameter && !id.isEmpty() && !parameter->valueOf(id))
            return { Error::UnknownEnumId, { control.id, id, parameter->name } };
    }
    return {};
}

Status checkSteps(const StrategyControl& control, const StrategyParameter* parameter)
{
    Q_UNUSED(parameter)
    for (const QString& step : { control.increment, control.outerIncrement }) {
        const std::optional<QString> number = ParameterValue::decimalOf(step);
        if (!step.isEmpty() && (!number || number->toDouble() <= 0))
            return { Error::InvalidStep, { control.id, step } };
    }
    return {};
}

Status checkDefault(const StrategyControl& control, const StrategyParameter& parameter)
{
    const QString value = ControlValue::toParameter(control, parameter, control.initialValue);
    // Dates keep a strategy from being offered, whatever their defaults are.
    const bool isUsed = !value.isEmpty() && !ParameterTypes::hasDate(parameter.type);
    const Status status = isUsed ? ParameterValue::check(parameter, value) : Status();
    if (!status)
        return { Error::InvalidDefault, { control.id, control.initialValue }, status };
    return {};
}

Status checkParameterOf(const StrategyControl& control, const StrategyParameter* parameter)
{
    if (control.parameter.isEmpty())
        return {};
    if (!parameter)
        return { Error::ControlWithoutParameter, { control.id, control.parameter } };
    if (!parameter->constValue.isEmpty())
        return { Error::ControlOfConstant, { control.id, parameter->name } };
    return fits(control, *parameter) ? Status() : Status(Error::ControlOfOtherType, { control.id, parameter->name });
}

/// A list without entries of its own offers the values of its parameter.
void completeItems(StrategyControl& control, const StrategyParameter* parameter, StrategyRemarks& remarks)
{
    const bool hasValues = parameter && !parameter->values.isEmpty();
    const bool needsItems = control.isClosedList() || (control.type == ControlType::Slider && hasValues);
    if (!needsItems || !control.items.isEmpty())
        return;
    if (!hasValues && parameter && parameter->required)
        remarks.hinder(control.line, { Error::ListWithoutEntries, { parameter->name } });
    remarks.warn(control.line, { Error::ElementExpected, { QStringLiteral("Control"), QStringLiteral("ListItem") } });
    if (!hasValues)
        return;
    for (const EnumeratedValue& value : parameter->values)
        control.items.append({ value.id, value.id });
}

/// Whether the parameter has its time from the control. Local times are those of the market.
bool isZonedClock(const StrategyControl& control, const StrategyParameter& parameter)
{
    return control.type == ControlType::Clock && parameter.type != ParameterType::LocalTime;
}

void connectParameter(const StrategyControl& control, StrategyParameter& parameter, StrategyRemarks& remarks)
{
    if (control.type == ControlType::EditableDropDownList)
        parameter.acceptsOthers = true;
    parameter.holdsSeveral = control.isMultiple();
    if (isZonedClock(control, parameter) && parameter.zone.isEmpty() && !control.initialValue.isEmpty())
        remarks.warn(
            control.line, { Error::AttributeExpected, { QStringLiteral("Control"), QStringLiteral("localMktTz") } });
}

void convertDefault(StrategyControl& control, const StrategyParameter* parameter, StrategyRemarks& remarks)
{
    const QString meant = ControlValue::meantBy(control, parameter, control.initialValue);
    remarks.warnTakenAs(control.line, "initValue", control.initialValue, meant);
    const Result<QString> value = ControlValue::read(control, parameter, meant);
    if (!value)
        return remarks.refuse(
            control.line, { Error::InvalidDefault, { control.id, control.initialValue.left(64) }, value.status() });
    control.initialValue = *value;
    if (control.isButton() && control.initialValue.isEmpty())
        control.initialValue = QStringLiteral("false");
    if (ControlValue::isNumber(control, parameter) && parameter && !value->isEmpty())
        control.initialValue = ParameterValue::rounded(*value, parameter->precision);
    if (!parameter)
        return;
    if (const Status status = checkDefault(control, *parameter); !status)
        remarks.refuse(control.line, status);
}

void convertSteps(StrategyControl& control)
{
    for (QString* const step : { &control.increment, &control.outerIncrement }) {
        if (!step->isEmpty())
            *step = ParameterValue::decimalOf(*step).value_or(QString());
    }
}

/// Radio buttons of one group may share a parameter.
bool mayShare(const StrategyControl& control, const StrategyControl& other)
{
    return !control.radioKey().isEmpty() && control.radioKey() == other.radioKey();
}

void checkNames(const StrategyDefinition& strategy, StrategyRemarks& remarks)
{
    QSet<QString> ids;
    QHash<QString, int> owners;
    for (int i = 0; i < strategy.controls.size(); ++i) {
        const StrategyControl& control = strategy.controls.at(i);
        if (ids.contains(control.id))
            remarks.refuse(control.line, { Error::DuplicateControl, { control.id } });
        ids.insert(control.id);
        const int owner = control.parameter.isEmpty() ? i : owners.value(control.parameter, i);
        if (owner != i && !mayShare(control, strategy.controls.at(owner)))
            remarks.refuse(control.line, { Error::SecondControl, { control.parameter } });
        owners.insert(control.parameter, owner);
    }
}

} // namespace

void ControlChecks::takeZones(StrategyDefinition& strategy)
{
    for (const StrategyControl& control : qAsConst(strategy.controls)) {
        const int index = control.zone.isEmpty() ? -1 : strategy.parameterIndex(control.parameter);
        if (index < 0)
            continue;
        StrategyParameter& parameter = strategy.parameters[index];
        if (isZonedClock(control, parameter) && parameter.zone.isEmpty())
            parameter.zone = control.zone;
    }
}

void ControlChecks::prepare(StrategyDefinition& strategy, StrategyRemarks& remarks)
{
    checkNames(strategy, remarks);
    for (StrategyControl& control : strategy.controls) {
        const int index = control.parameter.isEmpty() ? -1 : strategy.parameterIndex(control.parameter);
        StrategyParameter* const parameter = index < 0 ? nullptr : &strategy.parameters[index];
        completeItems(control, parameter, remarks);
        for (const auto check : { checkParameterOf, checkItems, checkButton, checkSteps }) {
            if (const Status status = check(control, parameter); !status)
                remarks.refuse(control.line, status);
        }
        if (!remarks.refusal)
            return;
        if (parameter)
            connectParameter(control, *parameter, remarks);
        convertSteps(control);
        convertDefault(control, parameter, remarks);
    }
}
