#include "PlanLimits.h"

#include "TickPrice.h"

namespace {

constexpr int YuanDecimals = 2;

} // namespace

Status PlanLimits::sizeError(const AccountLimits& limits, double quantity, double amount)
{
    if (quantity > static_cast<double>(*limits.quantity))
        return { Error::QuantityAboveLimit, { QString::number(quantity, 'f', 0), QString::number(*limits.quantity) } };
    if (amount > static_cast<double>(*limits.amount))
        return { Error::AmountAboveLimit,
            { QString::number(amount, 'f', YuanDecimals), QString::number(*limits.amount) } };
    return {};
}

Status PlanLimits::priceError(const AccountLimits& limits, const DayPrice& price, const Security& security)
{
    if (!price.limit)
        return {};
    const TickPrice::Limits band = TickPrice::limits(price.reference, static_cast<int>(*limits.priceBandPerMille));
    if (*price.limit >= band.down && *price.limit <= band.up)
        return {};
    const auto text = [&security](qint64 ticks) { return TickPrice::text(ticks, security.pricePrecision); };
    return { Error::PriceOutsideBand, { text(*price.limit), text(band.down), text(band.up) } };
}
