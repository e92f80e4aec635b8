#include "ParameterValue.h"

#include "MarketTime.h"
#include "ParameterTypes.h"

#include <QCoreApplication>
#include <QLocale>
#include <QRegularExpression>
#include <QTime>

#include <algorithm>

namespace {

constexpr int PercentPlaces = 2;

int decimals(const QString& number)
{
    const int point = number.indexOf(QLatin1Char('.'));
    return point < 0 ? 0 : number.size() - point - 1;
}

QString enteredTime(const QString& text)
{
    static const QStringList forms{ QStringLiteral("H:m:s"), QStringLiteral("H:m") };
    for (const QString& form : forms) {
        const QTime time = QLocale::c().toTime(text, form);
        if (time.isValid())
            return MarketTime::toText(time);
    }
    return text;
}

int compare(const StrategyParameter& parameter, const QString& left, const QString& right)
{
    if (!ParameterTypes::isNumber(parameter.type))
        return left.compare(right);
    const double difference = left.toDouble() - right.toDouble();
    return difference < 0 ? -1 : (difference > 0 ? 1 : 0);
}

/// The lower limit of the file, otherwise that of the type.
QString lowest(const StrategyParameter& parameter)
{
    return parameter.isNonNegative && parameter.minValue.isEmpty() ? QStringLiteral("0") : parameter.minValue;
}

Status checkRange(const StrategyParameter& parameter, const QString& value)
{
    const QString smallest = lowest(parameter);
    const bool isBelow = !smallest.isEmpty() && compare(parameter, value, smallest) < 0;
    const bool isAbove = !parameter.maxValue.isEmpty() && compare(parameter, value, parameter.maxValue) > 0;
    if (!isBelow && !isAbove)
        return {};
    const QString low = ParameterValue::shown(parameter, smallest);
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
        ParameterTypes::isWhole(parameter.type) || (parameter.type == ParameterType::Qty && parameter.precision <= 0);
    const int found = decimals(ParameterValue::shiftPoint(value, 0));
    if (whole && found > 0)
        return Error::ValueNotInteger;
    if (parameter.precision < 0 || found <= parameter.precision)
        return checkRange(parameter, value);
    const int shownPlaces =
        parameter.type == ParameterType::Percentage ? parameter.precision - PercentPlaces : parameter.precision;
    return { Error::ValueTooFine, { QString::number(std::max(shownPlaces, 0)) } };
}

/// The form of a text, if its type prescribes one.
QString formOf(ParameterType type)
{
    switch (type) {
    case ParameterType::Country:
        return QStringLiteral("[A-Za-z0-9]{2}");
    case ParameterType::Currency:
        return QStringLiteral("[A-Za-z0-9]{3}");
    case ParameterType::Language:
        return QStringLiteral("[A-Za-z]{1,8}(-[A-Za-z0-9]{1,8})*");
    case ParameterType::Tenor:
        return QStringLiteral("[DMWY][1-9][0-9]*");
    case ParameterType::MonthYear:
        return QStringLiteral("[0-9]{4}(0[1-9]|1[0-2])([0-3][0-9]|[wW][1-5])?");
    case ParameterType::LocalDate:
    case ParameterType::UtcDate:
        return QStringLiteral("[0-9]{4}-?(0[1-9]|1[0-2])-?(0[1-9]|[12][0-9]|3[01])");
    default:
        return {};
    }
}

Status checkText(const StrategyParameter& parameter, const QString& value)
{
    if (std::any_of(value.cbegin(), value.cend(), [](QChar sign) { return !sign.isPrint() && !sign.isSurrogate(); }))
        return Error::ValueNotPrintable;
    if (parameter.type == ParameterType::Char && value.size() != 1)
        return Error::ValueNotCharacter;
    if (value.size() > parameter.maxLength)
        return { Error::ValueTooLong, { QString::number(parameter.maxLength) } };
    if (value.size() < parameter.minLength)
        return { Error::ValueTooShort, { QString::number(parameter.minLength) } };
    const QString form = formOf(parameter.type);
    const bool fits =
        form.isEmpty() || QRegularExpression(QRegularExpression::anchoredPattern(form)).match(value).hasMatch();
    return fits ? Status() : Error::ValueMalformed;
}

bool isListed(const StrategyParameter& parameter, const QString& value)
{
    return std::any_of(parameter.values.cbegin(), parameter.values.cend(),
        [&](const EnumeratedValue& candidate) { return candidate.text == value; });
}

Status checkList(const StrategyParameter& parameter, const QString& value)
{
    const QStringList parts = value.split(QLatin1Char(' '));
    for (const QString& part : parts) {
        if (!parameter.values.isEmpty() && !parameter.acceptsOthers && !isListed(parameter, part))
            return Error::ValueNotListed;
        if (parameter.type == ParameterType::MultipleChar && part.size() != 1)
            return Error::ValueNotCharacter;
    }
    return checkText(parameter, value);
}

Status checkType(const StrategyParameter& parameter, const QString& value)
{
    if (ParameterTypes::isNumber(parameter.type))
        return checkNumber(parameter, value);
    if (ParameterTypes::isTime(parameter.type))
        return MarketTime::isStored(value) ? checkRange(parameter, value) : Error::ValueNotTime;
    if (parameter.type != ParameterType::Boolean || !parameter.values.isEmpty())
        return checkText(parameter, value);
    const bool known = value == parameter.trueValue || value == parameter.falseValue;
    return known ? Status() : Error::ValueNotListed;
}

/// A value may be sent as nothing.
bool mayBeEmpty(const StrategyParameter& parameter)
{
    return !parameter.required || parameter.trueValue == NullValue || parameter.falseValue == NullValue
        || isListed(parameter, QString());
}

} // namespace

bool ParameterValue::isDecimal(const QString& text)
{
    static const QRegularExpression form(
        QRegularExpression::anchoredPattern(QStringLiteral("-?[0-9]{1,15}(\\.[0-9]{1,10})?")));
    return form.match(text).hasMatch();
}

std::optional<QString> ParameterValue::decimalOf(const QString& text)
{
    static const QRegularExpression form(QRegularExpression::anchoredPattern(
        QStringLiteral("([+-]?)([0-9]{0,15})(?:\\.([0-9]{0,20}))?(?:[eE]([+-]?[0-9]{1,2}))?")));
    const QRegularExpressionMatch match = form.match(text.trimmed());
    const QString whole = match.captured(2);
    const QString fraction = match.captured(3);
    if (!match.hasMatch() || (whole + fraction).isEmpty())
        return std::nullopt;
    const QString sign = match.captured(1) == QLatin1String("-") ? match.captured(1) : QString();
    const QString plain = sign + (whole.isEmpty() ? QStringLiteral("0") : whole) + QLatin1Char('.') + fraction;
    const QString number = shiftPoint(plain, match.captured(4).toInt());
    return isDecimal(number) ? std::optional(number) : std::nullopt;
}

QString ParameterValue::rounded(const QString& number, int places)
{
    if (places < 0 || decimals(shiftPoint(number, 0)) <= places)
        return number;
    const QString digits = shiftPoint(number, places);
    const int point = digits.indexOf(QLatin1Char('.'));
    const bool isUp = digits.at(point + 1) >= QLatin1Char('5');
    const qlonglong whole =
        digits.left(point).toLongLong() + (isUp ? (number.startsWith(QLatin1Char('-')) ? -1 : 1) : 0);
    return shiftPoint(QString::number(whole), -places);
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
    if (ParameterTypes::isTime(parameter.type))
        return enteredTime(value);
    if (!ParameterTypes::isNumber(parameter.type) || !isDecimal(value))
        return value;
    return shiftPoint(value, parameter.type == ParameterType::Percentage ? -PercentPlaces : 0);
}

Status ParameterValue::check(const StrategyParameter& parameter, const QString& value)
{
    if (!parameter.constValue.isEmpty())
        return value == parameter.constValue ? Status() : Status(Error::ValueNotConstant, { parameter.constValue });
    if (value.isEmpty())
        return mayBeEmpty(parameter) ? Status() : Error::ValueMissing;
    if (ParameterTypes::isList(parameter.type) || parameter.holdsSeveral)
        return checkList(parameter, value);
    if (!parameter.values.isEmpty() && !parameter.acceptsOthers)
        return isListed(parameter, value) ? Status() : Error::ValueNotListed;
    return checkType(parameter, value);
}

QString ParameterValue::rangeHint(const StrategyParameter& parameter)
{
    const QString low = shown(parameter, parameter.minValue);
    const QString high = shown(parameter, parameter.maxValue);
    if (low.isEmpty() && high.isEmpty())
        return {};
    if (high.isEmpty())
        return QCoreApplication::translate("ParameterValue", "不小于 %1").arg(low);
    if (low.isEmpty())
        return QCoreApplication::translate("ParameterValue", "不大于 %1").arg(high);
    return QCoreApplication::translate("ParameterValue", "%1 ～ %2").arg(low, high);
}
