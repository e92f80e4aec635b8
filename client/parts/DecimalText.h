#pragma once

#include "Status.h"

#include <QString>
#include <QValidator>

/// The limits of a decimal field.
struct DecimalLimits {
    double minimum = 0;
    double maximum = 0;
    int decimals = 0;
};

/// Whether a text is a number within the limits, can become one, or is invalid.
struct DecimalVerdict {
    QValidator::State state = QValidator::Invalid;
    double number = 0; ///< valid only if acceptable and not empty
    Status status;     ///< success only if acceptable
};

/// Validates a typed text: digits with at most one point and a leading minus. The empty text is acceptable.
DecimalVerdict validateDecimal(const QString& text, const DecimalLimits& limits);

/// Whether a number is finite and within the limits.
bool isWithin(double number, const DecimalLimits& limits);

/// A number as text without grouping, in fixed notation; `trimmed` removes trailing zeros.
QString decimalText(double number, int decimals, bool trimmed);
