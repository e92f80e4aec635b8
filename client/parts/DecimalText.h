#pragma once

#include "Status.h"

#include <QString>

/// The limits of a decimal field.
struct DecimalLimits {
    double minimum = 0;
    double maximum = 0;
    int decimals = 0;
};

/// What the numbers of a field count.
struct NumberUnit {
    QString name;         ///< shown behind the number; empty if there is none
    int lot = 0;          ///< size of a lot; 0 if it is not known, 1 if there are no lots
    bool isRatio = false; ///< a percentage is accepted, too
};

/// The number that a trader means: "5万", "1.2亿", "50,000", "3手", "5%", with full-width characters and blanks around
/// it. Anything that has two meanings, is outside the limits or has too many decimals is a failure with its reason.
Result<double> typedNumber(const QString& text, const DecimalLimits& limits, const NumberUnit& unit);

/// Whether more characters can make a number of a text that is none yet, like "50,0".
bool isUnfinishedNumber(const QString& text);

/// Whether a text has digits and at most one point and a leading minus.
bool isPlainNumber(const QString& text);

/// Whether a number is finite and within the limits.
bool isWithin(double number, const DecimalLimits& limits);

/// A number as text without grouping, in fixed notation; `trimmed` removes trailing zeros.
QString decimalText(double number, int decimals, bool trimmed);

/// A plain number with its whole part in groups of three digits, in any system locale; any other text as it is.
QString groupedText(QString number);

/// The number with its unit, as shown to the trader.
QString numberInWords(double number, int decimals, const NumberUnit& unit);
