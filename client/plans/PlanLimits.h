#pragma once

#include "DayPrice.h"
#include "LimitStore.h"

/// Checks a plan or an instruction against the limits of its account, all of which are present.
namespace PlanLimits {

/// `quantity` is in displayed units, `amount` in yuan.
Status sizeError(const AccountLimits& limits, double quantity, double amount);
/// Success for a price without a limit.
Status priceError(const AccountLimits& limits, const DayPrice& price, const Security& security);

} // namespace PlanLimits
