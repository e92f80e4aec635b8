#include "StrategyChecks.h"

#include "ParameterValue.h"

#include <QSet>

namespace {

bool isListControl(ControlType type)
{
    return type == ControlType::DropDownList || type == ControlType::RadioButtonList;
}

bool isSpinner(ControlType type)
{
    return type == ControlType::SingleSpinner || type == ControlType::DoubleSpinner;
}

bool fits(ControlType control, const StrategyParameter& parameter)
{
    if (!parameter.values.isEmpty())
        return isListControl(control);
    if (isSpinner(control))
        return ParameterValue::isNumber(parameter.type);
    if (control == ControlType::Clock)
        return parameter.type == ParameterType::LocalTime;
    if (control == ControlType::CheckBox)
        return parameter.type == ParameterType::Boolean;
    return control == ControlType::TextField && parameter.type != ParameterType::Boolean;
}

/// The parameter without limits and constant, to check a value against the type alone.
StrategyParameter unlimited(StrategyParameter parameter)
{
    parameter.minValue.clear();
    parameter.maxValue.clear();
    parameter.constValue.clear();
    return parameter;
}

Status checkAttribute(const StrategyParameter& parameter, const QString& attribute, const QString& value)
{
    const Status status = value.isEmpty() ? Status() : ParameterValue::check(parameter, value);
    if (!status)
        return { Error::InvalidParameterAttribute, { parameter.name, attribute, value }, status };
    return {};
}

Status checkLimits(const StrategyParameter& parameter)
{
    if (parameter.minValue.isEmpty() && parameter.maxValue.isEmpty())
        return {};
    if (!ParameterValue::isNumber(parameter.type) && parameter.type != ParameterType::LocalTime)
        return { Error::LimitsOfOtherType, { parameter.name } };
    const StrategyParameter plain = unlimited(parameter);
    if (Status status = checkAttribute(plain, QStringLiteral("minValue"), parameter.minValue); !status)
        return status;
    if (Status status = checkAttribute(plain, QStringLiteral("maxValue"), parameter.maxValue); !status)
        return status;
    StrategyParameter upper = plain;
    upper.maxValue = parameter.maxValue;
    if (!parameter.minValue.isEmpty() && !ParameterValue::check(upper, parameter.minValue))
        return { Error::LimitsReversed, { parameter.name } };
    return {};
}

Status checkConstant(const StrategyParameter& parameter)
{
    StrategyParameter open = parameter;
    open.constValue.clear();
    return checkAttribute(open, QStringLiteral("constValue"), parameter.constValue);
}

QString duplicate(const QList<EnumeratedValue>& values, QString EnumeratedValue::*member)
{
    QSet<QString> seen;
    for (const EnumeratedValue& value : values) {
        if (seen.contains(value.*member))
            return value.*member;
        seen.insert(value.*member);
    }
    return {};
}

Status checkEnumeration(const StrategyParameter& parameter)
{
    const QString id = duplicate(parameter.values, &EnumeratedValue::id);
    if (!id.isEmpty())
        return { Error::DuplicateEnumId, { parameter.name, id } };
    const QString wire = duplicate(parameter.values, &EnumeratedValue::text);
    if (!wire.isEmpty())
        return { Error::DuplicateWireValue, { parameter.name, wire } };
    for (const EnumeratedValue& value : parameter.values) {
        if (Status status = checkAttribute(unlimited(parameter), QStringLiteral("wireValue"), value.text); !status)
            return status;
    }
    return {};
}

QSet<QString> ids(const QList<EnumeratedValue>& values)
{
    QSet<QString> result;
    for (const EnumeratedValue& value : values)
        result.insert(value.id);
    return result;
}

Status checkItems(const StrategyControl& control, const StrategyParameter& parameter)
{
    if (!isListControl(control.type) && !control.items.isEmpty())
        return { Error::ListItemsOfOtherType, { control.id } };
    const QString repeated = duplicate(control.items, &EnumeratedValue::id);
    if (!repeated.isEmpty())
        return { Error::DuplicateListItem, { control.id, repeated } };
    if (ids(control.items) != ids(parameter.values))
        return { Error::ListItemsDiffer, { control.id, parameter.name } };
    return {};
}

Status checkSteps(const StrategyControl& control, const StrategyParameter& parameter)
{
    for (const QString& step : { control.increment, control.outerIncrement }) {
        if (step.isEmpty())
            continue;
        const bool good = ParameterValue::check(unlimited(parameter), step) && step.toDouble() > 0;
        if (!good)
            return { Error::InvalidStep, { control.id, step } };
    }
    return {};
}

Status checkDefault(const StrategyControl& control, const StrategyParameter& parameter)
{
    const Status status =
        control.initialValue.isEmpty() ? Status() : ParameterValue::check(parameter, control.initialValue);
    if (!status)
        return { Error::InvalidDefault, { control.id, control.initialValue }, status };
    return {};
}

Status checkAgainst(const StrategyControl& control, const StrategyParameter* parameter)
{
    if (!parameter)
        return { Error::ControlWithoutParameter, { control.id, control.parameter } };
    if (!parameter->constValue.isEmpty())
        return { Error::ControlOfConstant, { control.id, parameter->name } };
    if (!fits(control.type, *parameter))
        return { Error::ControlOfOtherType, { control.id, parameter->name } };
    for (const auto check : { checkItems, checkSteps, checkDefault }) {
        if (Status status = check(control, *parameter); !status)
            return status;
    }
    return {};
}

template <typename Part> Status checkDuplicates(const QList<Part>& parts, QString Part::*key, Error error)
{
    QSet<QString> seen;
    for (const Part& part : parts) {
        if (seen.contains(part.*key))
            return StrategyChecks::errorAt(part.line, { error, { part.*key } });
        seen.insert(part.*key);
    }
    return {};
}

Status checkNames(const StrategyDefinition& strategy)
{
    if (Status status = checkDuplicates(strategy.parameters, &StrategyParameter::name, Error::DuplicateParameter);
        !status)
        return status;
    if (Status status = checkDuplicates(strategy.controls, &StrategyControl::id, Error::DuplicateControl); !status)
        return status;
    return checkDuplicates(strategy.controls, &StrategyControl::parameter, Error::SecondControl);
}

Status checkReachability(const StrategyDefinition& strategy)
{
    for (const StrategyParameter& parameter : strategy.parameters) {
        if (parameter.constValue.isEmpty() && !strategy.controlOf(parameter.name))
            return StrategyChecks::errorAt(parameter.line, { Error::ParameterWithoutControl, { parameter.name } });
    }
    return {};
}

Status checkRule(const StrategyRule& rule, const StrategyDefinition& strategy)
{
    const StrategyParameter* const field = strategy.parameter(rule.field);
    if (!field)
        return { Error::RuleWithoutParameter, { rule.field } };
    if (rule.otherField.isEmpty()) {
        if (Status status = ParameterValue::check(unlimited(*field), rule.value); !status)
            return { Error::InvalidRuleValue, { rule.field, rule.value }, status };
        return {};
    }
    const StrategyParameter* const other = strategy.parameter(rule.otherField);
    if (!other)
        return { Error::RuleWithoutParameter, { rule.otherField } };
    const bool comparable =
        field->type == other->type || (ParameterValue::isNumber(field->type) && ParameterValue::isNumber(other->type));
    if (!comparable)
        return { Error::RuleOfOtherTypes, { rule.field, rule.otherField } };
    return {};
}

Status checkEach(const StrategyDefinition& strategy)
{
    for (const StrategyParameter& parameter : strategy.parameters) {
        if (Status status = StrategyChecks::checkParameter(parameter); !status)
            return status;
    }
    for (const StrategyControl& control : strategy.controls) {
        if (Status status = StrategyChecks::checkControl(control, strategy); !status)
            return status;
    }
    return {};
}

} // namespace

Status StrategyChecks::checkParameter(const StrategyParameter& parameter)
{
    for (const auto check : { checkLimits, checkEnumeration, checkConstant }) {
        if (Status status = check(parameter); !status)
            return errorAt(parameter.line, status);
    }
    return {};
}

Status StrategyChecks::checkControl(const StrategyControl& control, const StrategyDefinition& strategy)
{
    const Status status = checkAgainst(control, strategy.parameter(control.parameter));
    return status ? status : errorAt(control.line, status);
}

Status StrategyChecks::check(const StrategyDefinition& strategy)
{
    for (const auto check : { checkNames, checkEach, checkReachability }) {
        if (Status status = check(strategy); !status)
            return status;
    }
    for (const StrategyRule& rule : strategy.rules) {
        if (Status status = checkRule(rule, strategy); !status)
            return errorAt(rule.line, status);
    }
    return {};
}

Status StrategyChecks::errorAt(qint64 line, const Status& error)
{
    return { Error::StrategyFileLine, { QString::number(line) }, error };
}
