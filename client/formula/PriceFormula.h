#pragma once

#include "Status.h"

#include <QHash>
#include <QString>
#include <QStringList>

/// Price formulas: numbers, names of prices, + - * / and brackets, max(a,b) and min(a,b). `names` are those that a
/// formula may use.
namespace PriceFormula {

constexpr int maximumLength = 300;
/// Brackets within brackets, those of functions included.
constexpr int maximumDepth = 20;

/// Whether the formula can be evaluated, whatever the prices are.
Status check(const QString& formula, const QStringList& names);
/// The price in yuan, not rounded, for the given values in yuan by name. Fails for a name without a value, and for a
/// result that is not a finite number above zero.
Result<double> evaluate(const QString& formula, const QStringList& names, const QHash<QString, double>& values);

} // namespace PriceFormula
