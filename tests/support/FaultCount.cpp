#include "FaultCount.h"

#include "ClientSession.h"
#include "PlanEvents.h"
#include "PlanLedger.h"

#include <algorithm>
#include <utility>

FaultCount::FaultCount(const QString& what)
    : m_what(what)
{
}

FaultCount::~FaultCount()
{
    if (m_tried > 0)
        reportFaults(m_what, m_tried, m_acknowledged, m_stored, m_lost);
}

void FaultCount::add(bool isAcknowledged, bool isStored)
{
    ++m_tried;
    m_acknowledged += isAcknowledged ? 1 : 0;
    m_stored += isStored ? 1 : 0;
    m_lost += isAcknowledged && !isStored ? 1 : 0;
}

SentPlans::SentPlans(const QString& what)
    : m_count(what)
{
    const PlanEvents* const events = &PlanEvents::instance();
    QObject::connect(events, &PlanEvents::planStored, &m_context, [this](const QString& planId) {
        m_acknowledged.append({ planId, ClientSession::instance().user().id });
    });
    QObject::connect(events, &PlanEvents::planRefused, &m_context, [this] { m_count.add(false, false); });
}

void SentPlans::compare(const QString& location)
{
    Database database;
    const Status opened = database.open(location);
    const auto sent = std::exchange(m_acknowledged, {});
    auto each = sent;
    std::sort(each.begin(), each.end());
    each.erase(std::unique(each.begin(), each.end()), each.end());
    for (const auto& [plan, user] : qAsConst(each)) {
        const auto own = database.value(
            QStringLiteral(
                "SELECT count(*) FROM history WHERE plan = ? AND \"user\" = ? AND event IN ('created', 'changed')"),
            { PlanId::toNumber(plan).value_or(0), user });
        const int stored = opened && own ? own->toInt() : 0;
        for (int i = 0; i < sent.count({ plan, user }); ++i)
            m_count.add(true, i < stored);
    }
}
