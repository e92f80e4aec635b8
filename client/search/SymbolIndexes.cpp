#include "SymbolIndexes.h"

namespace {

enum Priority { NamesLater, CodesFirst };

// Copies of a run share its elements, and the index keeps one copy: while it exists, no other run has this address.
const QString* keyOf(const QStringList& run)
{
    return &run.constFirst();
}

} // namespace

SymbolIndexes::SymbolIndexes()
{
    // One thread, which leaves the other cores of a small machine to the user interface.
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

SymbolIndexes& SymbolIndexes::ofInitials()
{
    static SymbolIndexes indexes;
    return indexes;
}

void SymbolIndexes::prepare(const QVector<QStringList>& runs, const SymbolIndex::NameOf& nameOf)
{
    for (const QStringList& run : runs) {
        if (m_indexes.contains(keyOf(run)))
            continue;
        const auto index = std::make_shared<SymbolIndex>(run, nameOf);
        m_indexes.insert(keyOf(run), index);
        start(index);
    }
}

std::shared_ptr<const SymbolIndex> SymbolIndexes::of(const QStringList& run) const
{
    return m_indexes.value(keyOf(run));
}

void SymbolIndexes::start(const std::shared_ptr<SymbolIndex>& index)
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
}
