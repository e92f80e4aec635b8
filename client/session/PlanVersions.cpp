#include "PlanVersions.h"

#include <algorithm>

void PlanVersions::note(const QString& planId, int version)
{
    m_noted.insert(planId, version);
}

void PlanVersions::noteRead(const StoredPlan& plan)
{
    note(plan.id, plan.version);
    m_read.insert(plan.id, new StoredPlan(plan));
}

StoredPlan PlanVersions::lastRead(const QString& planId) const
{
    const StoredPlan* const plan = m_read.object(planId);
    return plan ? *plan : StoredPlan();
}

void PlanVersions::pin(const QString& planId, int version)
{
    m_pinned.insert(planId, version);
}

void PlanVersions::unpin(const QString& planId, int version)
{
    const auto pinned = m_pinned.find(planId, version);
    if (pinned != m_pinned.end())
        m_pinned.erase(pinned);
}

int PlanVersions::of(const QString& planId) const
{
    const QList<int> pinned = m_pinned.values(planId);
    return pinned.isEmpty() ? m_noted.value(planId) : *std::min_element(pinned.cbegin(), pinned.cend());
}

void PlanVersions::clear()
{
    m_noted.clear();
    m_read.clear();
    m_pinned.clear();
}
