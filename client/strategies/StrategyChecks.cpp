#include "StrategyChecks.h"

#include "ControlChecks.h"
#include "ParameterReader.h"
#include "ParameterTypes.h"
#include "ParameterValue.h"

#include <QSet>

namespace {

/// The parameter without limits and constant, to check a value against the type alone.
StrategyParameter unlimited(StrategyParameter parameter)
{
    parameter.minValue.clear();
    parameter.maxValue.clear();
    parameter.constValue.clear();
    parameter.values.clear();
    parameter.isNonNegative = false;
    // Only values are rounded, when they are sent.
    parameter.precision = -1;
    // Quantities are whole for the trader, not for the file.
    if (parameter.type == ParameterType::Qty)
        parameter.type = ParameterType::Float;
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
    const StrategyParameter plain = unlimited(parameter);
    if (Status status = checkAttribute(plain, QStringLiteral("minValue"), parameter.minValue); !status)
        return status;
    if (Status status = checkAttribute(plain, QStringLiteral("maxValue"), parameter.maxValue); !status)
        return status;
    StrategyParameter upper = plain;
    upper.maxValue = parameter.maxValue;
    if (!parameter.minValue.isEmpty() && !ParameterValue::check(upper, parameter.minValue))
        return { Error::LimitsReversed, { parameter.name } };
    if (parameter.minLength > parameter.maxLength)
        return { Error::LimitsReversed, { parameter.name } };
    return {};
}

Status checkConstant(const StrategyParameter& parameter)
{
    StrategyParameter open = parameter;
    open.constValue.clear();
    if (open.type == ParameterType::Qty)
        open.type = ParameterType::Float;
    return checkAttribute(open, QStringLiteral("constValue"), parameter.constValue);
}

Status checkEnumeration(const StrategyParameter& parameter)
{
    QSet<QString> ids;
    StrategyParameter plain = unlimited(parameter);
    for (const EnumeratedValue& value : parameter.values) {
        if (ids.contains(value.id))
            return { Error::DuplicateEnumId, { parameter.name, value.id } };
        ids.insert(value.id);
        // The wire values of an enumerated yes or no are its own.
        if (parameter.type == ParameterType::Boolean)
            continue;
        if (Status status = checkAttribute(plain, QStringLiteral("wireValue"), value.text); !status)
            return status;
    }
    return {};
}

void warnOfEqualValues(const StrategyParameter& parameter, StrategyRemarks& remarks)
{
    QSet<QString> wires;
    for (const EnumeratedValue& value : parameter.values) {
        if (wires.contains(value.text))
            remarks.warn(parameter.line, { Error::DuplicateWireValue, { parameter.name, value.text } });
        wires.insert(value.text);
    }
}

void checkParameters(const StrategyDefinition& strategy, StrategyRemarks& remarks)
{
    QSet<QString> names;
    for (const StrategyParameter& parameter : strategy.parameters) {
        if (names.contains(parameter.name))
            remarks.refuse(parameter.line, { Error::DuplicateParameter, { parameter.name } });
        names.insert(parameter.name);
        for (const auto check : { checkLimits, checkEnumeration, checkConstant }) {
            if (const Status status = check(parameter); !status)
                remarks.refuse(parameter.line, status);
        }
        warnOfEqualValues(parameter, remarks);
    }
}

void checkFilling(const StrategyParameter& parameter, StrategyRemarks& remarks)
{
    if (parameter.required)
        remarks.hinder(parameter.line, { Error::ParameterWithoutControl, { parameter.name } });
    else
        remarks.warn(parameter.line, { Error::ParameterNeverSent, { parameter.name } });
}

} // namespace

void StrategyChecks::prepare(StrategyDefinition& strategy, StrategyRemarks& remarks)
{
    ControlChecks::takeZones(strategy);
    for (StrategyParameter& parameter : strategy.parameters)
        ParameterReader::convertLimits(parameter, remarks);
    checkParameters(strategy, remarks);
    if (remarks.refusal)
        ControlChecks::prepare(strategy, remarks);
}

void StrategyChecks::check(const StrategyDefinition& strategy, StrategyRemarks& remarks)
{
    QSet<QString> filled;
    for (const StrategyControl& control : strategy.controls)
        filled.insert(control.parameter);
    for (const StrategyParameter& parameter : strategy.parameters) {
        if (parameter.constValue.isEmpty() && !filled.contains(parameter.name))
            checkFilling(parameter, remarks);
        if (parameter.fixTag == 0 && !strategy.sendsParameterGroup)
            remarks.warn(parameter.line, { Error::ParameterWithoutTag, { parameter.name } });
    }
}
