#include "ControlValue.h"

#include "MarketTime.h"
#include "ParameterTypes.h"
#include "ParameterValue.h"

#include <algorithm>

namespace {

const QString Yes = QStringLiteral("true");
const QString No = QStringLiteral("false");
const QChar Space = QLatin1Char(' ');

bool hasItem(const StrategyControl& control, const QString& id)
{
    return std::any_of(
        control.items.cbegin(), control.items.cend(), [&](const EnumeratedValue& item) { return item.id == id; });
}

Result<QString> readButton(const StrategyControl& control, const QString& text)
{
    const QString word = text.trimmed().toLower();
    if (word == Yes || word == QLatin1String("1"))
        return Yes;
    if (word == No || word == QLatin1String("0"))
        return No;
    if (!text.isEmpty() && text == control.checkedId)
        return Yes;
    if (!text.isEmpty() && text == control.uncheckedId)
        return No;
    return Error::ValueNotListed;
}

Result<QString> readItems(const StrategyControl& control, const QString& text)
{
    const QStringList ids = control.isMultiple() ? text.simplified().split(Space) : QStringList{ text };
    const bool isKnown = std::all_of(ids.cbegin(), ids.cend(), [&](const QString& id) { return hasItem(control, id); });
    if (isKnown)
        return ids.join(Space);
    if (control.type == ControlType::EditableDropDownList)
        return text;
    return Error::ValueNotListed;
}

Result<QString> readClock(const StrategyControl& control, const StrategyParameter* parameter, const QString& text)
{
    const std::optional<MarketTime::Written> written = MarketTime::read(text);
    if (!written)
        return Error::ValueNotTime;
    const QByteArray own = parameter ? parameter->zone : control.zone;
    if (written->offset)
        return MarketTime::toText(MarketTime::convertOffset(written->time, *written->offset, own));
    const QByteArray from = control.zone.isEmpty() ? own : control.zone;
    return MarketTime::toText(MarketTime::convert(written->time, from, own));
}

QString wireOf(const StrategyParameter& parameter, const QString& id)
{
    const EnumeratedValue* const value = parameter.valueOf(id);
    return value ? value->text : QString();
}

QString idOf(const StrategyParameter& parameter, const QString& wire)
{
    for (const EnumeratedValue& value : parameter.values) {
        if (value.text == wire)
            return value.id;
    }
    return {};
}

QString buttonToParameter(const StrategyControl& control, const StrategyParameter& parameter, bool isChecked)
{
    if (!control.checkedId.isEmpty() || !control.uncheckedId.isEmpty())
        return wireOf(parameter, isChecked ? control.checkedId : control.uncheckedId);
    const QString wire = isChecked ? parameter.trueValue : parameter.falseValue;
    return wire == NullValue ? QString() : wire;
}

QString itemsToParameter(const StrategyControl& control, const StrategyParameter& parameter, const QString& value)
{
    if (!control.isMultiple())
        return hasItem(control, value) ? wireOf(parameter, value) : value;
    QStringList wires;
    const QStringList ids = value.split(Space);
    for (const QString& id : ids)
        wires.append(wireOf(parameter, id));
    return wires.join(Space);
}

QString itemsOfParameter(const StrategyControl& control, const StrategyParameter& parameter, const QString& stored)
{
    if (!control.isMultiple()) {
        const QString id = idOf(parameter, stored);
        return id.isEmpty() && control.type == ControlType::EditableDropDownList ? stored : id;
    }
    QStringList ids;
    const QStringList wires = stored.split(Space);
    for (const QString& wire : wires)
        ids.append(idOf(parameter, wire));
    ids.removeAll(QString());
    return ids.join(Space);
}

} // namespace

const StrategyParameter* ControlValue::parameterOf(const StrategyDefinition& strategy, const StrategyControl& control)
{
    return control.parameter.isEmpty() ? nullptr : strategy.parameter(control.parameter);
}

bool ControlValue::isNumber(const StrategyControl& control, const StrategyParameter* parameter)
{
    if (control.choosesItems() || control.isButton() || control.type == ControlType::Clock)
        return false;
    if (control.isSpinner() || control.type == ControlType::Slider)
        return true;
    return parameter && parameter->values.isEmpty() && ParameterTypes::isNumber(parameter->type);
}

Result<QString> ControlValue::read(
    const StrategyControl& control, const StrategyParameter* parameter, const QString& text)
{
    if (text.isEmpty() || text == NullValue)
        return QString();
    if (control.isButton())
        return readButton(control, text);
    if (control.choosesItems())
        return readItems(control, text);
    if (control.type == ControlType::Clock)
        return readClock(control, parameter, text);
    if (!isNumber(control, parameter))
        return text;
    const std::optional<QString> number = ParameterValue::decimalOf(text);
    return number ? Result<QString>(*number) : Result<QString>(Error::ValueNotNumber);
}

QString ControlValue::toParameter(
    const StrategyControl& control, const StrategyParameter& parameter, const QString& value)
{
    if (value.isEmpty())
        return {};
    if (control.isButton())
        return buttonToParameter(control, parameter, value == Yes);
    if (control.choosesItems())
        return itemsToParameter(control, parameter, value);
    const QString wire = wireOf(parameter, value);
    return wire.isEmpty() ? value : wire;
}

QString ControlValue::ofParameter(
    const StrategyControl& control, const StrategyParameter& parameter, const QString& stored)
{
    if (control.isButton()) {
        const QString checked = buttonToParameter(control, parameter, true);
        const bool isChecked = stored.isEmpty() ? parameter.trueValue == NullValue : stored == checked;
        return isChecked ? Yes : No;
    }
    if (stored.isEmpty())
        return {};
    return control.choosesItems() ? itemsOfParameter(control, parameter, stored) : stored;
}

QMap<QString, QString> ControlValue::parameters(const StrategyDefinition& strategy, const QStringList& values)
{
    QMap<QString, QString> result;
    for (const StrategyParameter& parameter : strategy.parameters)
        result.insert(parameter.name, parameter.constValue);
    for (int i = 0; i < strategy.controls.size(); ++i) {
        const StrategyControl& control = strategy.controls.at(i);
        const StrategyParameter* const parameter = parameterOf(strategy, control);
        if (!parameter)
            continue;
        const QString value = toParameter(control, *parameter, values.value(i));
        // Of several radio buttons of a parameter, the checked one decides.
        QString& known = result[control.parameter];
        if (known.isEmpty() || values.value(i) == Yes)
            known = value;
    }
    return result;
}

QMap<QString, QString> ControlValue::defaults(const StrategyDefinition& strategy)
{
    QStringList values;
    for (const StrategyControl& control : strategy.controls)
        values.append(control.initialValue);
    return parameters(strategy, values);
}
