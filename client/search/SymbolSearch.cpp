#include "SymbolSearch.h"

#include <algorithm>

namespace {

/// A position in one of the indexes that are merged.
struct Cursor {
    const SymbolIndex* index;
    int place;

    const QString& code() const { return index->codeAt(place); }
    bool isAt(const QString& prefix) const { return place < index->size() && code().startsWith(prefix); }
};

SymbolSearch::Stage stageOf(const SymbolIndex* index)
{
    if (!index || !index->hasCodes())
        return SymbolSearch::Nothing;
    return index->hasNames() ? SymbolSearch::CodesAndNames : SymbolSearch::Codes;
}

void appendNew(const QString& symbol, QStringList& found)
{
    if (!found.contains(symbol))
        found.append(symbol);
}

} // namespace

SymbolSearch::SymbolSearch(const QVector<QStringList>& runs, const SymbolIndexes& indexes)
{
    m_indexes.reserve(runs.size());
    for (const QStringList& run : runs) {
        m_indexes.append(indexes.of(run));
        m_stage = std::min(m_stage, stageOf(m_indexes.constLast().get()));
    }
}

QBitArray SymbolSearch::letters() const
{
    QBitArray all;
    if (m_stage < CodesAndNames)
        return all;
    for (const auto& index : m_indexes)
        all |= index->letters();
    return all;
}

QStringList SymbolSearch::exact(const QString& code) const
{
    QStringList found;
    if (m_stage < Codes)
        return found;
    const QString withDot = code + QLatin1Char('.');
    for (const auto& index : m_indexes) {
        Cursor cursor{ index.get(), index->firstNotBefore(code) };
        if (cursor.isAt(code) && cursor.code() == code)
            appendNew(index->symbolAt(cursor.place), found);
        for (cursor.place = index->firstNotBefore(withDot); cursor.isAt(withDot); ++cursor.place)
            appendNew(index->symbolAt(cursor.place), found);
    }
    return found;
}

void SymbolSearch::appendByCode(const QString& prefix, int limit, QStringList& found) const
{
    if (m_stage < Codes)
        return;
    QVector<Cursor> cursors;
    for (const auto& index : m_indexes) {
        const Cursor cursor{ index.get(), index->firstNotBefore(prefix) };
        if (cursor.isAt(prefix))
            cursors.append(cursor);
    }
    while (!cursors.isEmpty() && found.size() < limit) {
        const auto next = std::min_element(
            cursors.begin(), cursors.end(), [](const Cursor& a, const Cursor& b) { return a.code() < b.code(); });
        appendNew(next->index->symbolAt(next->place), found);
        ++next->place;
        if (!next->isAt(prefix))
            cursors.erase(next);
    }
}

void SymbolSearch::appendByName(const QString& part, int limit, QStringList& found) const
{
    if (m_stage < CodesAndNames)
        return;
    for (const auto& index : m_indexes)
        index->appendByName(part, limit, found);
}
