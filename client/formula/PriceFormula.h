#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

/// Price formulas: numbers, names of prices, + - * / and brackets, max(a,b) and min(a,b). `names` are those that a
/// formula may use.
namespace PriceFormula {

constexpr int maximumLength = 300;
/// Brackets within brackets, those of functions included.
constexpr int maximumDepth = 20;

struct Result {
    /// Price in yuan, not rounded; 0 when refused.
    double price = 0;
    /// Why there is no price, with the place where one can be named; empty on success.
    QString reason;
};

/// Why the formula is none, whatever the prices are; empty when it can be evaluated.
QString check(const QString& formula, const QStringList& names);
/// The price for the given values in yuan by name. A name without a value, a result that is no finite number and one
/// that is not above zero are refused.
Result evaluate(const QString& formula, const QStringList& names, const QHash<QString, double>& values);

} // namespace PriceFormula
