#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

/// Prices that a formula names beside the moving averages of `MovingAverages::names`.
namespace PriceItem {
inline const QString previousClose = QStringLiteral("昨收价");
inline const QString upperLimit = QStringLiteral("涨停价");
inline const QString lowerLimit = QStringLiteral("跌停价");
} // namespace PriceItem

/// Price formulas: numbers, names of prices, + - * / and brackets, max(a,b) and min(a,b).
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

/// Every name that a formula may use.
const QStringList& itemNames();
/// Why the formula is none, whatever the prices are; empty when it can be evaluated.
QString check(const QString& formula);
/// The price for the given values in yuan by name. A name without a value, a result that is no finite number and one
/// that is not above zero are refused.
Result evaluate(const QString& formula, const QHash<QString, double>& values);

} // namespace PriceFormula
