#pragma once

#include "Status.h"
#include "StrategyDefinition.h"
#include <QMap>

/// Values of strategy parameters: what is stored, what is shown, what is wrong with one. Stored values are those of
/// `StrategyParameter`; shown are percentages times 100, everything else as stored.
namespace ParameterValue {

/// True for plain decimal numbers of at most 15 digits before and 10 after the point; exponents, "nan" and blanks are
/// none.
bool isDecimal(const QString& text);

/// True for numeric types.
bool isNumber(ParameterType type);

/// A decimal number with its point moved to the right (`places` negative: to the left), without needless zeros.
/// `text` must be a decimal.
QString movePoint(const QString& text, int places);

/// Text for the trader; a value that is none of the parameter's is returned as it is.
QString shown(const StrategyParameter& parameter, const QString& value);

/// The inverse: value of what the trader has typed, in its shortest form ("9:30" is "09:30:00"). What cannot be
/// understood is returned as it is, for `check` to refuse.
QString entered(const StrategyParameter& parameter, const QString& text);

/// Whether the parameter takes a value.
Status check(const StrategyParameter& parameter, const QString& value);

/// The range for the trader ("1 ～ 50"); empty when there is none.
QString rangeHint(const StrategyParameter& parameter);

/// True unless both sides of the rule have a value and their relation does not hold.
bool holds(const StrategyRule& rule, const StrategyDefinition& strategy, const QMap<QString, QString>& values);

} // namespace ParameterValue
