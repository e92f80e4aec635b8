#pragma once

#include <QStringList>

/// Puts formula names into the order in which they are offered. Names outside that order come first.
QStringList inPromptOrder(QStringList names);

/// Functions offered under a price mode: those that compare under the custom mode, none otherwise.
QStringList functionItems(const QString& priceMode);

/// What the price input shows where there is no limit.
QString zeroPrice(int decimals);
