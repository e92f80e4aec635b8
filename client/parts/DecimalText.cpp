#include "DecimalText.h"

#include "PlainText.h"

#include <QRegularExpression>
#include <QVector>

#include <cmath>

namespace {

constexpr double Tolerance = 1e-10;
/// Longer texts are rejected.
constexpr int LongestText = 32;
/// With more digits, a product with a lot could overflow.
constexpr int MostDigitsOfLots = 12;
constexpr int GroupSize = 3;
constexpr int DecimalsOfPercent = 2;

/// A number without its sign: its digits, of which `scale` are behind the point.
struct Digits {
    QString all;
    int scale = 0;
};

struct Magnitude {
    QString word;
    int zeros;
};

const QVector<Magnitude>& magnitudes()
{
    static const QVector<Magnitude> words{ { QStringLiteral("千万"), 7 }, { QStringLiteral("百万"), 6 },
        { QStringLiteral("亿"), 8 }, { QStringLiteral("万"), 4 }, { QStringLiteral("千"), 3 } };
    return words;
}

const QString Lot = QStringLiteral("手");

bool isUnitWord(const QString& word)
{
    return word == QStringLiteral("股") || word == QStringLiteral("张") || word == QStringLiteral("元");
}

Status malformed(const QString& text)
{
    return { Error::NumberMalformed, { text.trimmed().left(LongestText) } };
}

/// Removes zeros that do not change the value.
Digits normalized(Digits digits)
{
    for (; digits.scale < 0; ++digits.scale)
        digits.all += QLatin1Char('0');
    for (; digits.scale > 0 && digits.all.endsWith(QLatin1Char('0')); --digits.scale)
        digits.all.chop(1);
    while (digits.all.size() > digits.scale && digits.all.startsWith(QLatin1Char('0')))
        digits.all.remove(0, 1);
    return digits;
}

Result<Digits> inLots(Digits digits, const NumberUnit& unit)
{
    if (unit.lot == 0)
        return Error::NumberLotUnknown;
    if (unit.lot == 1)
        return { Error::NumberWithoutLots, { unit.name } };
    digits = normalized(digits);
    if (digits.all.size() > MostDigitsOfLots)
        return malformed(digits.all + Lot);
    digits.all = QString::number(digits.all.toLongLong() * unit.lot);
    return digits;
}

/// Applies what follows the digits: a magnitude, then a unit.
Result<Digits> withSuffix(Digits digits, const QString& suffix, const NumberUnit& unit)
{
    QString word = suffix.trimmed();
    if (unit.isRatio && word == QLatin1String("%"))
        return Digits{ digits.all, digits.scale + DecimalsOfPercent };
    for (const Magnitude& magnitude : magnitudes()) {
        if (!word.startsWith(magnitude.word))
            continue;
        digits.scale -= magnitude.zeros;
        word = word.mid(magnitude.word.size()).trimmed();
        break;
    }
    if (word.isEmpty() || word == unit.name)
        return digits;
    if (word == Lot && !unit.isRatio && unit.name != QStringLiteral("元"))
        return inLots(digits, unit);
    if (unit.name.isEmpty() || (word != Lot && !isUnitWord(word)))
        return { Error::NumberUnitUnknown, { suffix.trimmed() } };
    return { Error::NumberInOtherUnit, { unit.name, word } };
}

/// Whether words follow the digits, not another number.
bool isSuffix(const QString& suffix)
{
    const QString word = suffix.trimmed();
    return word.isEmpty() || word.at(0).isLetter() || word.at(0) == QLatin1Char('%');
}

bool isGroupedWell(const QString& whole)
{
    static const QRegularExpression form(QStringLiteral("^[0-9]{1,3}(,[0-9]{3})+$"));
    return !whole.contains(QLatin1Char(',')) || form.match(whole).hasMatch();
}

/// `shown` decides how the limits are written.
Status checkRange(double number, const DecimalLimits& limits, const NumberUnit& shown)
{
    if (number > limits.maximum + Tolerance)
        return { Error::NumberTooLarge, { numberInWords(limits.maximum, limits.decimals, shown) } };
    if (number < limits.minimum - Tolerance)
        return { Error::NumberTooSmall, { numberInWords(limits.minimum, limits.decimals, shown) } };
    return {};
}

Result<double> numberOf(Digits digits, bool isNegative, const DecimalLimits& limits, const NumberUnit& shown)
{
    digits = normalized(digits);
    if (digits.scale > limits.decimals)
        return limits.decimals == 0 ? Status(Error::NumberNotWhole)
                                    : Status(Error::NumberTooFine, { QString::number(limits.decimals) });
    const int missing = qMax(0, digits.scale + 1 - static_cast<int>(digits.all.size()));
    QString text = QString(missing, QLatin1Char('0')) + digits.all;
    if (digits.scale > 0)
        text.insert(text.size() - digits.scale, QLatin1Char('.'));
    const double number = isNegative ? -text.toDouble() : text.toDouble();
    const Status status = checkRange(number, limits, shown);
    return status ? Result<double>(number) : status;
}

} // namespace

Result<double> typedNumber(const QString& text, const DecimalLimits& limits, const NumberUnit& unit)
{
    static const QRegularExpression form(QStringLiteral("^(-?)([0-9,]*)(?:\\.([0-9]*))?(.*)$"));
    const QString typed = PlainText::halfWidth(text.trimmed());
    const QRegularExpressionMatch match = form.match(typed);
    if (!match.hasMatch() || typed.size() > LongestText)
        return malformed(text);
    QString whole = match.captured(2);
    const QString fraction = match.captured(3);
    const QString suffix = match.captured(4);
    if (whole.isEmpty() && fraction.isEmpty())
        return suffix.isEmpty() ? Status(Error::NumberIncomplete) : malformed(text);
    if (!isGroupedWell(whole) || fraction.contains(QLatin1Char(',')) || suffix.startsWith(QLatin1Char(',')))
        return { Error::NumberGrouping, { typed } };
    if (!isSuffix(suffix))
        return malformed(text);
    whole.remove(QLatin1Char(','));
    const Result<Digits> digits = withSuffix({ whole + fraction, static_cast<int>(fraction.size()) }, suffix, unit);
    // A typed percentage is compared with one.
    NumberUnit shown;
    shown.isRatio = unit.isRatio && suffix.trimmed() == QLatin1String("%");
    return digits ? numberOf(*digits, !match.captured(1).isEmpty(), limits, shown) : digits.status();
}

bool isUnfinishedNumber(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^-?([0-9]{1,3}(,[0-9]{3})*,[0-9]{0,2}|\\.)?$"));
    return form.match(PlainText::halfWidth(text.trimmed())).hasMatch();
}

bool isPlainNumber(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^-?[0-9]+(\\.[0-9]+)?$"));
    return form.match(text).hasMatch();
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

QString groupedText(QString number)
{
    if (!isPlainNumber(number))
        return number;
    const int point = number.indexOf(QLatin1Char('.'));
    const int first = number.startsWith(QLatin1Char('-')) ? 1 : 0;
    for (int at = (point < 0 ? number.size() : point) - GroupSize; at > first; at -= GroupSize)
        number.insert(at, QLatin1Char(','));
    return number;
}

QString numberInWords(double number, int decimals, const NumberUnit& unit)
{
    if (unit.isRatio)
        return decimalText(100 * number, qMax(0, decimals - DecimalsOfPercent), true) + QLatin1Char('%');
    const QString text = groupedText(decimalText(number, decimals, true));
    return unit.name.isEmpty() ? text : QStringLiteral("%1 %2").arg(text, unit.name);
}
