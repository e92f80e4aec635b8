#pragma once

#include <QtGlobal>

/// Doubles that differ by less count as equal.
constexpr double NumberTolerance = 1e-10;

/// True when a value lies within the tolerance of zero.
bool isZero(double value);

/// Whole number of a quantity, forgiving what a decimal loses in binary: towards zero after 1e-6 outwards.
qint64 roundToWhole(double value);

/// Whole number of a quantity, cut towards zero to 32 bits without any tolerance.
qint32 truncateToInt32(double value);

/// A display factor to divide by: 0 counts as 1 and is logged as a warning.
int usableDisplayFactor(int factor, const char* caller);

/// Whole number of stored units in a displayed quantity, the remainder dropped. `factor` must not be 0.
qint32 storedQuantity(double displayed, int factor);
