#include "ControlValue.h"

#include "MarketTime.h"
#include "ParameterTypes.h"
#include "ParameterValue.h"

#include <QRegularExpression>

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
    const QStringList ids = control.isMultiple() ? text.split(Space, Qt::SkipEmptyParts) : QStringList{ text };
    const bool isKnown = std::all_of(ids.cbegin(), ids.cend(), [&](const QString& id) { return hasItem(control, id); });
    if (isKnown)
        return ids.join(Space);
    if (control.type == ControlType::EditableDropDownList)
        return text;
    return Error::ValueNotListed;
}

/// The id of the entry with an id, a wire value or a shown text; empty if there is none.
QString idOfEntry(const StrategyControl& control, const StrategyParameter* parameter, const QString& text)
{
    if (hasItem(control, text))
        return text;
    for (const EnumeratedValue& item : control.items) {
        const EnumeratedValue* const value = parameter ? parameter->valueOf(item.id) : nullptr;
        if (value && !text.isEmpty() && value->text == text)
            return item.id;
    }
    for (const EnumeratedValue& item : control.items) {
        if (item.text == text)
            return item.id;
    }
    return {};
}

QString itemsMeant(const StrategyControl& control, const StrategyParameter* parameter, const QString& text)
{
    static const QRegularExpression comma(QStringLiteral("[,;]"));
    static const QRegularExpression blank(QStringLiteral("\\s"));
    QStringList ids{ idOfEntry(control, parameter, text) };
    if (ids.constFirst().isEmpty() && control.isMultiple()) {
        ids.clear();
        const QStringList words = text.split(text.contains(comma) ? comma : blank, Qt::SkipEmptyParts);
        for (const QString& word : words)
            ids.append(idOfEntry(control, parameter, word.trimmed()));
    }
    return ids.contains(QString()) ? text : ids.join(Space);
}

Result<QString> readClock(const StrategyControl& control, const StrategyParameter* parameter, const QString& text)
{
    const QByteArray own = ControlValue::zoneOf(control, parameter);
    const std::optional<QString> time = MarketTime::converted(text, control.zone.isEmpty() ? own : control.zone, own);
    return time ? Result<QString>(*time) : Result<QString>(Error::ValueNotTime);
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
    wires.removeAll(QString());
    return wires.join(Space);
}

/// Nothing is stored for an entry that sends nothing.
QString itemsOfParameter(const StrategyControl& control, const StrategyParameter& parameter, const QString& stored)
{
    if (stored.isEmpty() || !control.isMultiple()) {
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

QByteArray ControlValue::zoneOf(const StrategyControl& control, const StrategyParameter* parameter)
{
    return parameter ? parameter->zone : control.zone;
}

bool ControlValue::isNumber(const StrategyControl& control, const StrategyParameter* parameter)
{
    if (control.choosesItems() || control.isButton() || control.type == ControlType::Clock)
        return false;
    if (control.isSpinner() || control.type == ControlType::Slider)
        return true;
    return parameter && parameter->values.isEmpty() && ParameterTypes::isNumber(parameter->type);
}

QString ControlValue::meantBy(const StrategyControl& control, const StrategyParameter* parameter, const QString& text)
{
    if (text.isEmpty() || text == NullValue)
        return text;
    if (control.choosesItems())
        return itemsMeant(control, parameter, text);
    if (!control.isButton() || readButton(control, text))
        return text;
    const StrategyParameter usual = parameter ? *parameter : StrategyParameter();
    for (const bool isChecked : { true, false }) {
        if (text == buttonToParameter(control, usual, isChecked))
            return isChecked ? Yes : No;
    }
    return text;
}

Result<QString> ControlValue::read(
    const StrategyControl& control, const StrategyParameter* parameter, const QString& text)
{
    if (text.isEmpty() || text == NullValue)
        return QString();
    if (control.isButton())
        return readButton(control, text);
    if (control.choosesItems() || control.isClosedList())
        return readItems(control, text);
    if (control.type == ControlType::Clock)
        return readClock(control, parameter, text);
    const EnumeratedValue* const listed = parameter ? parameter->valueOf(text) : nullptr;
    const QString value = listed ? listed->text : text;
    if (value.isEmpty() || !isNumber(control, parameter))
        return value;
    const std::optional<QString> number = ParameterValue::decimalOf(value);
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
    // Where texts are typed, an id is taken for its value.
    const bool isWire = std::any_of(parameter.values.cbegin(), parameter.values.cend(),
        [&](const EnumeratedValue& known) { return known.text == value; });
    const EnumeratedValue* const listed = isWire ? nullptr : parameter.valueOf(value);
    return listed ? listed->text : value;
}

QString ControlValue::ofParameter(
    const StrategyControl& control, const StrategyParameter& parameter, const QString& stored)
{
    if (control.isButton())
        return stored == buttonToParameter(control, parameter, true) ? Yes : No;
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
