#pragma once

#include <QStringList>

/// Sorts formula names into the order in which they are offered. Names without a defined position come first.
QStringList inPromptOrder(QStringList names);

/// Returns the functions offered in a price mode: the comparing functions in the custom mode, otherwise none.
QStringList functionItems(const QString& priceMode);

/// Returns the text that the price input shows without a price limit.
QString zeroPrice(int decimals);
