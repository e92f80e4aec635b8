#include "PlanList.h"

#include "AutoPlanField.h"
#include "Kelvo_Fields.h"
#include "StoredPlan.h"

bool PlanSearch::isEmpty() const
{
    return lastNumber == 0 && isOfNumbers();
}

bool PlanSearch::isOfNumbers() const
{
    return symbolStart.isEmpty() && symbols.isEmpty() && tradingAccounts.isEmpty();
}

PlanPlace PlanList::placeOf(const StoredPlan& plan) const
{
    const qint64 number = PlanId::toNumber(plan.id).value_or(0);
    switch (order) {
    case PlanOrder::Number:
        break;
    case PlanOrder::Security:
        return { plan.record.value(Kelvo_Fields::Security::symbol).toString(), number };
    case PlanOrder::End:
        return { plan.record.value(AutoPlanField::BaseField::endDate).toString(), number };
    }
    return { QString(), number };
}

bool PlanList::precedes(const PlanPlace& place, const PlanPlace& other) const
{
    const auto key = [](const PlanPlace& each) { return qMakePair(each.value, each.number); };
    return isDescending ? key(other) < key(place) : key(place) < key(other);
}
