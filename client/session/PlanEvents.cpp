#include "PlanEvents.h"

#include "ErrorText.h"

#include <QDebug>

PlanEvents& PlanEvents::instance()
{
    static PlanEvents events;
    return events;
}

void PlanEvents::report(const Status& failure)
{
    qWarning().noquote() << "PlanEvents::report" << errorText(failure);
    Q_EMIT readFailed(failure);
}
