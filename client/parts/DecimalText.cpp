#include "DecimalText.h"

#include <QRegularExpression>

#include <cmath>

namespace {

constexpr double Tolerance = 1e-10;
/// Longer texts are rejected.
constexpr int LongestText = 32;

DecimalVerdict refused(const Status& status)
{
    return { QValidator::Invalid, 0, status };
}

DecimalVerdict unfinished(const Status& status)
{
    return { QValidator::Intermediate, 0, status };
}

Status tooSmall(const DecimalLimits& limits)
{
    return { Error::NumberTooSmall, { decimalText(limits.minimum, limits.decimals, true) } };
}

Status tooLarge(const DecimalLimits& limits)
{
    return { Error::NumberTooLarge, { decimalText(limits.maximum, limits.decimals, true) } };
}

/// Appending digits moves a number away from zero, possibly into the range.
DecimalVerdict validateNumber(double number, const DecimalLimits& limits)
{
    if (number > limits.maximum + Tolerance)
        return number < 0 ? unfinished(tooLarge(limits)) : refused(tooLarge(limits));
    if (number < limits.minimum - Tolerance)
        return number >= 0 ? unfinished(tooSmall(limits)) : refused(tooSmall(limits));
    return { QValidator::Acceptable, number, {} };
}

} // namespace

DecimalVerdict validateDecimal(const QString& text, const DecimalLimits& limits)
{
    static const QRegularExpression form(QStringLiteral("^-?[0-9]*(\\.([0-9]*))?$"));
    if (text.isEmpty())
        return { QValidator::Acceptable, 0, {} };
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch() || text.size() > LongestText)
        return refused(Error::NumberMalformed);
    if (text.startsWith(QLatin1Char('-')) && limits.minimum >= 0)
        return refused(tooSmall(limits));
    if (limits.decimals == 0 && text.contains(QLatin1Char('.')))
        return refused(Error::NumberNotWhole);
    if (match.capturedLength(2) > limits.decimals)
        return refused({ Error::NumberTooFine, { QString::number(limits.decimals) } });
    if (text.endsWith(QLatin1Char('.')) || text == QLatin1String("-"))
        return unfinished(Error::NumberIncomplete);
    return validateNumber(text.toDouble(), limits);
}

bool isWithin(double number, const DecimalLimits& limits)
{
    return std::isfinite(number) && number >= limits.minimum - Tolerance && number <= limits.maximum + Tolerance;
}

QString decimalText(double number, int decimals, bool trimmed)
{
    QString text = QString::number(number, 'f', decimals);
    if (!trimmed || !text.contains(QLatin1Char('.')))
        return text;
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text;
}
