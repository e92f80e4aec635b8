#pragma once

#include "plans/DayPrice.h"

/// What an order got.
struct Fill {
    /// In displayed units.
    qint64 quantity = 0;
    /// Per unit, in ticks.
    qint64 price = 0;
};

/// Fills an order without an exchange, always the same way: an order without a limit, or with one that is no worse for
/// the market than the reference, is filled at the reference; a limit at most one percent away gets half of its lots
/// at its own price; any other gets nothing.
Fill simulateFill(bool isBuy, const DayPrice& price, qint64 quantity, int lot);
