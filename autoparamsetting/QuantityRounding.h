#pragma once

#include <QtGlobal>

/// Doubles are considered equal if they differ by less than this.
constexpr double NumberTolerance = 1e-10;

/// Returns true if a value is zero within the tolerance.
bool isZero(double value);

/// Converts a quantity to a whole number: moves it away from zero by 1e-6, to compensate for binary representation,
/// then truncates.
qint64 roundToWhole(double value);

/// Truncates a quantity to a 32-bit whole number, without any tolerance.
qint32 truncateToInt32(double value);

/// Returns a display factor that can be a divisor: replaces 0 with 1 and logs a warning.
int usableDisplayFactor(int factor, const char* caller);

/// Converts a displayed quantity to whole stored units and drops the remainder. `factor` must not be 0.
qint32 storedQuantity(double displayed, int factor);
