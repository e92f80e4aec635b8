#pragma once

#include "Status.h"
#include "StrategyDefinition.h"

#include <optional>

/// Converts and checks values of strategy parameters. Stored values are those of `StrategyParameter`; percentages are
/// shown times 100, everything else as stored.
namespace ParameterValue {

/// True for decimal numbers with at most 15 digits before and 10 after the point, without exponent or spaces.
bool isDecimal(const QString& text);

/// The decimal number that a file writes, possibly with a plus sign, an exponent, or nothing on a side of the point.
std::optional<QString> decimalOf(const QString& text);

/// A decimal number with at most `places` decimals; unchanged if `places` is negative.
QString rounded(const QString& number, int places);

/// A decimal number with its point moved to the right (to the left if `places` is negative), without superfluous zeros.
/// `text` must be a decimal.
QString shiftPoint(const QString& text, int places);

/// The value as shown to the trader; an invalid value is returned unchanged.
QString shown(const StrategyParameter& parameter, const QString& value);

/// The stored form of a typed text; "9:30" becomes "09:30:00". An invalid text is returned unchanged, and `check` fails
/// for it.
QString entered(const StrategyParameter& parameter, const QString& text);

/// Checks whether a value is valid for the parameter.
Status check(const StrategyParameter& parameter, const QString& value);

/// The range as shown to the trader ("1 ～ 50"); empty if there is none.
QString rangeHint(const StrategyParameter& parameter);

} // namespace ParameterValue
