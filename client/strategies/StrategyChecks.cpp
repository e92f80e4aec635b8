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

/// The parameter without its limits: what is left is its type.
StrategyParameter unlimited(StrategyParameter parameter)
{
    parameter.minValue.clear();
    parameter.maxValue.clear();
    parameter.constValue.clear();
    return parameter;
}

QString valueProblem(const StrategyParameter& parameter, const QString& attribute, const QString& value)
{
    if (value.isEmpty())
        return {};
    const QString problem = ParameterValue::problem(parameter, value);
    if (problem.isEmpty())
        return {};
    return QStringLiteral("参数%1的%2“%3”%4").arg(parameter.name, attribute, value, problem);
}

QString limitsProblem(const StrategyParameter& parameter)
{
    if (parameter.minValue.isEmpty() && parameter.maxValue.isEmpty())
        return {};
    if (!ParameterValue::isNumber(parameter.type) && parameter.type != ParameterType::LocalTime)
        return QStringLiteral("参数%1的类型不能有minValue或maxValue").arg(parameter.name);
    const StrategyParameter plain = unlimited(parameter);
    const QString low = valueProblem(plain, QStringLiteral("minValue"), parameter.minValue);
    const QString high = valueProblem(plain, QStringLiteral("maxValue"), parameter.maxValue);
    if (!low.isEmpty() || !high.isEmpty())
        return low.isEmpty() ? high : low;
    StrategyParameter upper = plain;
    upper.maxValue = parameter.maxValue;
    if (!parameter.minValue.isEmpty() && !ParameterValue::problem(upper, parameter.minValue).isEmpty())
        return QStringLiteral("参数%1的minValue大于maxValue").arg(parameter.name);
    return {};
}

QString constantProblem(const StrategyParameter& parameter)
{
    StrategyParameter open = parameter;
    open.constValue.clear();
    return valueProblem(open, QStringLiteral("constValue"), parameter.constValue);
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

QString enumerationProblem(const StrategyParameter& parameter)
{
    const QString id = duplicate(parameter.values, &EnumeratedValue::id);
    if (!id.isEmpty())
        return QStringLiteral("参数%1的enumID“%2”重复").arg(parameter.name, id);
    const QString wire = duplicate(parameter.values, &EnumeratedValue::text);
    if (!wire.isEmpty())
        return QStringLiteral("参数%1的wireValue“%2”重复").arg(parameter.name, wire);
    for (const EnumeratedValue& value : parameter.values) {
        QString problem = valueProblem(unlimited(parameter), QStringLiteral("wireValue"), value.text);
        if (!problem.isEmpty())
            return problem;
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

QString itemsProblem(const StrategyControl& control, const StrategyParameter& parameter)
{
    if (!isListControl(control.type) && !control.items.isEmpty())
        return QStringLiteral("控件%1的类型不能有ListItem").arg(control.id);
    const QString repeated = duplicate(control.items, &EnumeratedValue::id);
    if (!repeated.isEmpty())
        return QStringLiteral("控件%1的ListItem“%2”重复").arg(control.id, repeated);
    if (ids(control.items) != ids(parameter.values))
        return QStringLiteral("控件%1的ListItem与参数%2的EnumPair不一致").arg(control.id, parameter.name);
    return {};
}

QString stepProblem(const StrategyControl& control, const StrategyParameter& parameter)
{
    for (const QString& step : { control.increment, control.outerIncrement }) {
        if (step.isEmpty())
            continue;
        const bool good = ParameterValue::problem(unlimited(parameter), step).isEmpty() && step.toDouble() > 0;
        if (!good)
            return QStringLiteral("控件%1的步长“%2”应为大于零且符合参数类型的数字").arg(control.id, step);
    }
    return {};
}

QString defaultProblem(const StrategyControl& control, const StrategyParameter& parameter)
{
    const QString problem =
        control.initialValue.isEmpty() ? QString() : ParameterValue::problem(parameter, control.initialValue);
    if (problem.isEmpty())
        return {};
    return QStringLiteral("控件%1的默认值“%2”%3").arg(control.id, control.initialValue, problem);
}

QString controlProblem(const StrategyControl& control, const StrategyParameter* parameter)
{
    if (!parameter)
        return QStringLiteral("控件%1的参数“%2”不存在").arg(control.id, control.parameter);
    if (!parameter->constValue.isEmpty())
        return QStringLiteral("控件%1的参数%2是常量，不能有控件").arg(control.id, parameter->name);
    if (!fits(control.type, *parameter))
        return QStringLiteral("控件%1的类型与参数%2的类型不符").arg(control.id, parameter->name);
    for (const auto find : { itemsProblem, stepProblem, defaultProblem }) {
        QString problem = find(control, *parameter);
        if (!problem.isEmpty())
            return problem;
    }
    return {};
}

template <typename Part>
StrategyFlaw firstDuplicate(const QList<Part>& parts, QString Part::*key, const QString& message)
{
    QSet<QString> seen;
    for (const Part& part : parts) {
        if (seen.contains(part.*key))
            return { message.arg(part.*key), part.line };
        seen.insert(part.*key);
    }
    return {};
}

StrategyFlaw duplicates(const StrategyDefinition& strategy)
{
    for (const StrategyFlaw& flaw :
        { firstDuplicate(strategy.parameters, &StrategyParameter::name, QStringLiteral("参数名“%1”重复")),
            firstDuplicate(strategy.controls, &StrategyControl::id, QStringLiteral("控件ID“%1”重复")),
            firstDuplicate(strategy.controls, &StrategyControl::parameter, QStringLiteral("参数“%1”有多个控件")) }) {
        if (!flaw.reason.isEmpty())
            return flaw;
    }
    return {};
}

StrategyFlaw unreachableParameter(const StrategyDefinition& strategy)
{
    for (const StrategyParameter& parameter : strategy.parameters) {
        if (parameter.constValue.isEmpty() && !strategy.controlOf(parameter.name))
            return { QStringLiteral("参数%1既没有控件也没有constValue").arg(parameter.name), parameter.line };
    }
    return {};
}

StrategyFlaw checkRule(const StrategyRule& rule, const StrategyDefinition& strategy)
{
    const StrategyParameter* const field = strategy.parameter(rule.field);
    if (!field)
        return { QStringLiteral("校验规则的参数“%1”不存在").arg(rule.field), rule.line };
    if (rule.otherField.isEmpty()) {
        const QString problem = valueProblem(unlimited(*field), QStringLiteral("校验值"), rule.value);
        return { problem, rule.line };
    }
    const StrategyParameter* const other = strategy.parameter(rule.otherField);
    if (!other)
        return { QStringLiteral("校验规则的参数“%1”不存在").arg(rule.otherField), rule.line };
    const bool comparable =
        field->type == other->type || (ParameterValue::isNumber(field->type) && ParameterValue::isNumber(other->type));
    if (!comparable)
        return { QStringLiteral("校验规则的参数%1与%2类型不同，不能比较").arg(rule.field, rule.otherField), rule.line };
    return {};
}

} // namespace

StrategyFlaw StrategyChecks::checkParameter(const StrategyParameter& parameter)
{
    for (const auto find : { limitsProblem, enumerationProblem, constantProblem }) {
        const QString problem = find(parameter);
        if (!problem.isEmpty())
            return { problem, parameter.line };
    }
    return {};
}

StrategyFlaw StrategyChecks::checkControl(const StrategyControl& control, const StrategyDefinition& strategy)
{
    return { controlProblem(control, strategy.parameter(control.parameter)), control.line };
}

StrategyFlaw StrategyChecks::check(const StrategyDefinition& strategy)
{
    StrategyFlaw flaw = duplicates(strategy);
    for (auto it = strategy.parameters.cbegin(); flaw.reason.isEmpty() && it != strategy.parameters.cend(); ++it)
        flaw = checkParameter(*it);
    for (auto it = strategy.controls.cbegin(); flaw.reason.isEmpty() && it != strategy.controls.cend(); ++it)
        flaw = checkControl(*it, strategy);
    if (flaw.reason.isEmpty())
        flaw = unreachableParameter(strategy);
    for (auto it = strategy.rules.cbegin(); flaw.reason.isEmpty() && it != strategy.rules.cend(); ++it)
        flaw = checkRule(*it, strategy);
    return flaw;
}
