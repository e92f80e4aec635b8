#include "InstructionCache.h"

InstructionCache::InstructionCache(Database& database)
    : m_database(database)
{
}

InstructionCache::Instructions InstructionCache::ofPlan(const QString& planId)
{
    const QString mark = m_database.contentsMark();
    if (!isKnown(planId, mark))
        m_known = { planId, mark, InstructionStore(m_database).ofPlan(planId) };
    return m_known.instructions;
}

void InstructionCache::readAhead(const QString& planId)
{
    const QString mark = m_database.contentsMark();
    if (mark.isEmpty() || isKnown(planId, mark))
        return;
    if (!m_desk)
        startDesk();
    m_desk->read(planId, mark);
}

void InstructionCache::clear()
{
    m_desk.reset();
    m_known = Known();
}

bool InstructionCache::isKnown(const QString& planId, const QString& mark) const
{
    return !mark.isEmpty() && mark == m_known.mark && planId == m_known.plan;
}

// Received by the desk, so that nothing arrives once the desk is gone.
void InstructionCache::startDesk()
{
    m_desk = std::make_unique<InstructionDesk>(m_database.fileName());
    QObject::connect(m_desk.get(), &InstructionDesk::arrived, m_desk.get(),
        [this](const QString& planId, const QString& mark, const Instructions& instructions) {
            if (mark == m_database.contentsMark())
                m_known = { planId, mark, instructions };
        });
}
