#pragma once

#include "Status.h"

#include <QString>
#include <QValidator>

/// What a decimal field takes.
struct DecimalLimits {
    double minimum = 0;
    double maximum = 0;
    int decimals = 0;
};

/// Whether a text is a number within the limits, may become one, or is refused.
struct DecimalVerdict {
    QValidator::State state = QValidator::Invalid;
    double number = 0; ///< valid only when acceptable and not empty
    Status status;     ///< success only when acceptable
};

/// Judges a typed text: digits with at most one point and a leading minus, nothing else. The empty text is acceptable.
DecimalVerdict judgeDecimal(const QString& text, const DecimalLimits& limits);

/// Whether a number is finite and within the limits.
bool isWithin(double number, const DecimalLimits& limits);

/// A number as text without grouping, in fixed notation; `trimmed` leaves trailing zeros out.
QString decimalText(double number, int decimals, bool trimmed);
