#pragma once

#include "Status.h"

#include <QString>

/// Why an account cannot convert a bond into shares; success if it can. Only credit accounts convert, by a sale of a
/// convertible bond that they hold. `side`: a code of `Kelvo_Values::OrderSide`.
Status bondConversionError(const QString& account, const QString& symbol, const QString& side);
