#include "PlanEvents.h"

PlanEvents& PlanEvents::instance()
{
    static PlanEvents events;
    return events;
}
