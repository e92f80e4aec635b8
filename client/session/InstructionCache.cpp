#include "InstructionCache.h"

#include "ReadReport.h"

InstructionCache::InstructionCache(Database& database)
    : m_database(database)
{
}

Result<InstructionCache::Instructions> InstructionCache::ofPlan(const QString& planId)
{
    const QString token = m_database.changeToken();
    if (isKnown(planId, token))
        return m_known.instructions;
    const Result<Instructions> read = InstructionStore(m_database).ofPlan(planId);
    if (read)
        m_known = { planId, token, *read };
    return read;
}

void InstructionCache::prefetch(const QString& planId)
{
    const QString token = m_database.changeToken();
    if (token.isEmpty() || isKnown(planId, token))
        return;
    if (!m_prefetcher)
        startPrefetcher();
    m_prefetcher->read(planId, token);
}

void InstructionCache::clear()
{
    m_prefetcher.reset();
    m_known = Known();
}

bool InstructionCache::isKnown(const QString& planId, const QString& token) const
{
    return !token.isEmpty() && token == m_known.token && planId == m_known.plan;
}

// The prefetcher is the context, so that no result arrives after its destruction.
void InstructionCache::startPrefetcher()
{
    m_prefetcher = std::make_unique<InstructionPrefetcher>(m_database);
    QObject::connect(m_prefetcher.get(), &InstructionPrefetcher::arrived, m_prefetcher.get(),
        [this](const QString& planId, const QString& token, const Instructions& instructions) {
            if (token == m_database.changeToken())
                m_known = { planId, token, instructions };
        });
    QObject::connect(m_prefetcher.get(), &InstructionPrefetcher::failed, m_prefetcher.get(), reportFailure);
}
