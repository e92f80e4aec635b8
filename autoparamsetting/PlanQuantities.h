#pragma once

#include <QString>

/// Returns what the instructions of a plan use of its target: the filled part of an instruction that has ended,
/// otherwise the issued part. In shares, or in yuan for instructions by amount; 0 without instructions.
double usedQuantity(const QString& planId);

/// Returns the holdings of a security that an account can sell, in shares. `targetText` is only logged.
double availableHoldings(const QString& tradingAccount, const QString& symbol, const QString& targetText);
