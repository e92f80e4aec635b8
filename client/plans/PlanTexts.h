#pragma once

#include <QDate>
#include <QMap>
#include <QString>
#include <QVariant>

#include <optional>

/// Parsers for a plan's texts. They are strict: a text that is not exactly of the form gives an absent value.
namespace PlanTexts {

/// Largest length of an other-parameter text, in characters.
constexpr int LongestOtherParam = 256 * 1024;

/// The other-parameter map of a text; absent if the text is not a JSON object or is longer than `LongestOtherParam`.
std::optional<QMap<QString, QVariant>> otherParam(const QString& text);

/// The text of an other-parameter map.
QString jsonText(const QMap<QString, QVariant>& map);

/// A whole number of at most 15 digits, zero included; absent for a sign, a decimal point or an exponent.
std::optional<qint64> wholeNumber(const QString& text);
/// A decimal number of at most 15 digits before and 8 after the point, zero included; absent for a sign, grouping or
/// an exponent.
std::optional<double> decimalNumber(const QString& text);

/// A date in `OrloConstants::DateTimeFormatString::STD_DATE_FORMAT`; invalid if the text is not such a date.
QDate date(const QString& text);
QString text(const QDate& date);

} // namespace PlanTexts
