#pragma once

#include "Status.h"

#include <QHash>
#include <QString>
#include <QStringList>

/// Price formulas: numbers, names of prices, + - * / and parentheses, max(a,b) and min(a,b). `names` are the prices
/// that a formula may use.
namespace PriceFormula {

constexpr int MaximumLength = 300;
/// Deepest nesting of parentheses, including those of functions.
constexpr int MaximumDepth = 20;

/// Checks whether the formula can be evaluated, regardless of the prices.
Status check(const QString& formula, const QStringList& names);
/// The price in yuan, not rounded. `values` are in yuan, by name. Fails if a name has no value, or if the result is not
/// a finite number above zero.
Result<double> evaluate(const QString& formula, const QStringList& names, const QHash<QString, double>& values);

} // namespace PriceFormula
