#include "ParameterValue.h"

#include <QLocale>
#include <QRegularExpression>
#include <QTime>

#include <algorithm>

namespace {

const QString StoredTime = QStringLiteral("HH:mm:ss");
constexpr int PercentPlaces = 2;

int decimals(const QString& number)
{
    const int point = number.indexOf(QLatin1Char('.'));
    return point < 0 ? 0 : number.size() - point - 1;
}

bool isTime(const QString& text)
{
    return text.size() == StoredTime.size() && QLocale::c().toTime(text, StoredTime).isValid();
}

QString enteredTime(const QString& text)
{
    static const QStringList forms{ QStringLiteral("H:m:s"), QStringLiteral("H:m") };
    for (const QString& form : forms) {
        const QTime time = QLocale::c().toTime(text, form);
        if (time.isValid())
            return QLocale::c().toString(time, StoredTime);
    }
    return text;
}

int compare(const StrategyParameter& parameter, const QString& left, const QString& right)
{
    if (!ParameterValue::isNumber(parameter.type))
        return left.compare(right);
    const double difference = left.toDouble() - right.toDouble();
    return difference < 0 ? -1 : (difference > 0 ? 1 : 0);
}

bool isBelowRange(const StrategyParameter& parameter, const QString& value)
{
    return !parameter.minValue.isEmpty() && compare(parameter, value, parameter.minValue) < 0;
}

bool isAboveRange(const StrategyParameter& parameter, const QString& value)
{
    return !parameter.maxValue.isEmpty() && compare(parameter, value, parameter.maxValue) > 0;
}

Status checkRange(const StrategyParameter& parameter, const QString& value)
{
    if (!isBelowRange(parameter, value) && !isAboveRange(parameter, value))
        return {};
    const QString low = ParameterValue::shown(parameter, parameter.minValue);
    const QString high = ParameterValue::shown(parameter, parameter.maxValue);
    if (high.isEmpty())
        return { Error::ValueTooSmall, { low } };
    if (low.isEmpty())
        return { Error::ValueTooLarge, { high } };
    return { Error::ValueOutOfRange, { low, high } };
}

Status checkNumber(const StrategyParameter& parameter, const QString& value)
{
    if (!ParameterValue::isDecimal(value))
        return Error::ValueNotNumber;
    const bool whole =
        parameter.type == ParameterType::Int || (parameter.type == ParameterType::Qty && parameter.precision <= 0);
    const int found = decimals(ParameterValue::shiftPoint(value, 0));
    if (whole && found > 0)
        return Error::ValueNotInteger;
    if (parameter.precision < 0 || found <= parameter.precision)
        return checkRange(parameter, value);
    const int shownPlaces =
        parameter.type == ParameterType::Percentage ? parameter.precision - PercentPlaces : parameter.precision;
    return { Error::ValueTooFine, { QString::number(std::max(shownPlaces, 0)) } };
}

Status checkTime(const StrategyParameter& parameter, const QString& value)
{
    if (!isTime(value))
        return Error::ValueNotTime;
    return checkRange(parameter, value);
}

Status checkText(const StrategyParameter& parameter, const QString& value)
{
    if (std::any_of(value.cbegin(), value.cend(), [](QChar letter) { return !letter.isPrint(); }))
        return Error::ValueNotPrintable;
    if (parameter.type == ParameterType::Char && value.size() != 1)
        return Error::ValueNotCharacter;
    if (value.size() > parameter.maxLength)
        return { Error::ValueTooLong, { QString::number(parameter.maxLength) } };
    return {};
}

Status checkType(const StrategyParameter& parameter, const QString& value)
{
    if (ParameterValue::isNumber(parameter.type))
        return checkNumber(parameter, value);
    if (parameter.type == ParameterType::LocalTime)
        return checkTime(parameter, value);
    if (parameter.type != ParameterType::Boolean)
        return checkText(parameter, value);
    const bool known = value == parameter.trueValue || value == parameter.falseValue;
    return known ? Status() : Error::ValueNotListed;
}

bool isListed(const StrategyParameter& parameter, const QString& value)
{
    return std::any_of(parameter.values.cbegin(), parameter.values.cend(),
        [&](const EnumeratedValue& candidate) { return candidate.text == value; });
}

bool isTrue(RuleOperator comparison, int order)
{
    switch (comparison) {
    case RuleOperator::Less:
        return order < 0;
    case RuleOperator::LessOrEqual:
        return order <= 0;
    case RuleOperator::Greater:
        return order > 0;
    case RuleOperator::GreaterOrEqual:
        return order >= 0;
    case RuleOperator::Equal:
        return order == 0;
    case RuleOperator::NotEqual:
        return order != 0;
    }
    return false;
}

} // namespace

bool ParameterValue::isDecimal(const QString& text)
{
    static const QRegularExpression form(
        QRegularExpression::anchoredPattern(QStringLiteral("-?[0-9]{1,15}(\\.[0-9]{1,10})?")));
    return form.match(text).hasMatch();
}

bool ParameterValue::isNumber(ParameterType type)
{
    return type == ParameterType::Int || type == ParameterType::Float || type == ParameterType::Qty
        || type == ParameterType::Price || type == ParameterType::Amount || type == ParameterType::Percentage;
}

QString ParameterValue::shiftPoint(const QString& text, int places)
{
    const bool negative = text.startsWith(QLatin1Char('-'));
    QString digits = text;
    digits.remove(QLatin1Char('-')).remove(QLatin1Char('.'));
    int point = digits.size() - decimals(text) + places;
    if (point < 1) {
        digits.prepend(QString(1 - point, QLatin1Char('0')));
        point = 1;
    }
    digits = digits.leftJustified(point, QLatin1Char('0'));

    QString whole = digits.left(point);
    while (whole.size() > 1 && whole.startsWith(QLatin1Char('0')))
        whole.remove(0, 1);
    QString fraction = digits.mid(point);
    while (fraction.endsWith(QLatin1Char('0')))
        fraction.chop(1);

    const QString number = fraction.isEmpty() ? whole : whole + QLatin1Char('.') + fraction;
    return negative && number != QLatin1String("0") ? QLatin1Char('-') + number : number;
}

QString ParameterValue::shown(const StrategyParameter& parameter, const QString& value)
{
    if (parameter.type == ParameterType::Percentage && isDecimal(value))
        return shiftPoint(value, PercentPlaces);
    return value;
}

QString ParameterValue::entered(const StrategyParameter& parameter, const QString& text)
{
    QString value = text.trimmed();
    if (parameter.type == ParameterType::LocalTime)
        return enteredTime(value);
    if (!isNumber(parameter.type) || !isDecimal(value))
        return value;
    return shiftPoint(value, parameter.type == ParameterType::Percentage ? -PercentPlaces : 0);
}

Status ParameterValue::check(const StrategyParameter& parameter, const QString& value)
{
    if (!parameter.constValue.isEmpty())
        return value == parameter.constValue ? Status() : Status(Error::ValueNotConstant, { parameter.constValue });
    if (value.isEmpty())
        return parameter.required ? Error::ValueMissing : Status();
    if (!parameter.values.isEmpty() && !isListed(parameter, value))
        return Error::ValueNotListed;
    return checkType(parameter, value);
}

QString ParameterValue::rangeHint(const StrategyParameter& parameter)
{
    const QString low = shown(parameter, parameter.minValue);
    const QString high = shown(parameter, parameter.maxValue);
    if (low.isEmpty() && high.isEmpty())
        return {};
    if (high.isEmpty())
        return QStringLiteral("不小于 %1").arg(low);
    if (low.isEmpty())
        return QStringLiteral("不大于 %1").arg(high);
    return QStringLiteral("%1 ～ %2").arg(low, high);
}

bool ParameterValue::holds(
    const StrategyRule& rule, const StrategyDefinition& strategy, const QMap<QString, QString>& values)
{
    const StrategyParameter* const parameter = strategy.parameter(rule.field);
    const QString left = values.value(rule.field);
    const QString right = rule.otherField.isEmpty() ? rule.value : values.value(rule.otherField);
    if (!parameter || left.isEmpty() || right.isEmpty())
        return true;
    return isTrue(rule.comparison, compare(*parameter, left, right));
}
