#include "DayShare.h"

#include "PlanCodes.h"

#include <algorithm>
#include <cmath>

namespace {

using namespace PlanCodes;

// Quantities come from decimal texts and ratios, so 300 may be slightly too small.
constexpr double Tolerance = 1e-6;

double leftOf(const PlanShare& plan)
{
    return std::max(0.0, plan.total - plan.used);
}

double mostOfDay(const PlanShare& plan)
{
    return plan.perDay > 0 ? std::min(plan.perDay, leftOf(plan)) : leftOf(plan);
}

double wanted(const PlanShare& plan)
{
    if (plan.planType == PlanType::AverageQty)
        return leftOf(plan) / std::max(1, plan.daysLeft);
    if (plan.planType == PlanType::ReduceHoldings)
        return plan.total * plan.ratio;
    return mostOfDay(plan);
}

} // namespace

double dayShare(const PlanShare& plan)
{
    return std::min(wanted(plan), mostOfDay(plan));
}

qint64 lotsWithin(double quantity, int lot)
{
    if (lot < 1)
        return 0;
    return static_cast<qint64>(std::floor(quantity / lot + Tolerance)) * lot;
}

qint64 dayQuantity(const PlanShare& plan, int lot)
{
    if (plan.planType != PlanType::AverageQty || lot < 1)
        return lotsWithin(dayShare(plan), lot);
    const qint64 roundedUp = static_cast<qint64>(std::ceil(dayShare(plan) / lot - Tolerance)) * lot;
    return std::min(roundedUp, lotsWithin(mostOfDay(plan), lot));
}
