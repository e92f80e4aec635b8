#include "search/SymbolIndexes.h"

namespace {

/// Indexes that are kept although no box searches them any more; far above the kinds of securities in a market.
constexpr int mostIndexes = 1024;

enum Priority { NamesLater, CodesFirst };

} // namespace

SymbolIndexes::SymbolIndexes()
{
    // One thread, so that on a small machine the others are left to the trader.
    m_pool.setMaxThreadCount(1);
}

SymbolIndexes::~SymbolIndexes()
{
    forget();
}

SymbolIndexes& SymbolIndexes::instance()
{
    static SymbolIndexes indexes;
    return indexes;
}

std::shared_ptr<const SymbolIndex> SymbolIndexes::of(const QStringList& run)
{
    // Copies of a run share its elements, and the index keeps one copy: while it lives no other run has this address.
    const QString* key = &run.constFirst();
    const auto known = m_indexes.constFind(key);
    if (known != m_indexes.constEnd())
        return *known;
    if (m_oldestFirst.size() >= mostIndexes)
        m_indexes.remove(m_oldestFirst.takeFirst());
    m_oldestFirst.append(key);
    const auto index = std::make_shared<SymbolIndex>(run);
    m_indexes.insert(key, index);
    prepare(index);
    return index;
}

void SymbolIndexes::prepare(const std::shared_ptr<SymbolIndex>& index)
{
    index->begin();
    const auto codes = [this, index] {
        index->prepareCodes();
        Q_EMIT advanced();
    };
    const auto names = [this, index] {
        index->prepareNames();
        Q_EMIT advanced();
    };
    m_pool.start(codes, CodesFirst);
    m_pool.start(names, NamesLater);
}

void SymbolIndexes::waitForFinished()
{
    m_pool.waitForDone();
}

void SymbolIndexes::forget()
{
    for (const std::shared_ptr<SymbolIndex>& index : qAsConst(m_indexes))
        index->stop();
    m_pool.clear();
    m_pool.waitForDone();
    m_indexes.clear();
    m_oldestFirst.clear();
}
