#pragma once

#include <QDate>
#include <QMap>
#include <QString>
#include <QVariant>

#include <optional>

/// How a plan's texts are read. Every reading is strict: what is not exactly of the form is absent, not guessed.
namespace PlanTexts {

/// Longest other-parameter text that is read, in characters.
constexpr int longestOtherParam = 256 * 1024;

/// The other-parameter map of a text; absent when the text is no JSON object or longer than `longestOtherParam`.
std::optional<QMap<QString, QVariant>> otherParam(const QString& text);

/// A whole number of at most 15 digits, zero included; absent for a sign, a decimal point or an exponent.
std::optional<qint64> wholeNumber(const QString& text);
/// A decimal number of at most 15 digits before and 8 after the point, zero included; absent for a sign, grouping or
/// an exponent.
std::optional<double> decimalNumber(const QString& text);

/// A date in `OrloConstants::DateTimeFormatString::STD_DATE_FORMAT`; invalid when the text is none.
QDate date(const QString& text);
QString text(const QDate& date);

} // namespace PlanTexts
