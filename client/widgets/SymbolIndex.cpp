#include "SymbolIndex.h"

#include "OrloBusinessDataInterface.h"
#include <QHash>
#include <QList>
#include <QStringView>
#include <algorithm>
#include <numeric>

namespace {

/// Indexes that are kept although no search box uses them any more.
constexpr int mostIndexes = 32;

struct Cache {
    QHash<const QString*, std::shared_ptr<const SymbolIndex>> indexes;
    QList<const QString*> oldestFirst;
};

QStringView suffixOf(const QString& name, int from)
{
    return QStringView(name).mid(from);
}

} // namespace

QString searchForm(const QString& text)
{
    return text.normalized(QString::NormalizationForm_KC).toUpper();
}

std::shared_ptr<const SymbolIndex> SymbolIndex::of(const QStringList& run)
{
    static Cache cache;
    // Copies of a run share its elements, and the index keeps one copy: while it lives no other run has this address.
    const QString* key = &run.constFirst();
    const auto known = cache.indexes.constFind(key);
    if (known != cache.indexes.constEnd())
        return *known;
    if (cache.oldestFirst.size() >= mostIndexes)
        cache.indexes.remove(cache.oldestFirst.takeFirst());
    cache.oldestFirst.append(key);
    return *cache.indexes.insert(key, std::make_shared<SymbolIndex>(run));
}

SymbolIndex::SymbolIndex(const QStringList& run)
    : m_run(run)
{
    m_codes.reserve(run.size());
    for (const QString& symbol : run)
        m_codes.append(searchForm(symbol));
    m_byCode.resize(run.size());
    std::iota(m_byCode.begin(), m_byCode.end(), 0);
    const auto earlier = [this](int a, int b) { return m_codes.at(a) < m_codes.at(b); };
    if (!std::is_sorted(m_byCode.cbegin(), m_byCode.cend(), earlier))
        std::sort(m_byCode.begin(), m_byCode.end(), earlier);
}

int SymbolIndex::firstNotBefore(const QString& prefix) const
{
    const auto isBefore = [this](int row, const QString& text) { return m_codes.at(row) < text; };
    return int(std::lower_bound(m_byCode.cbegin(), m_byCode.cend(), prefix, isBefore) - m_byCode.cbegin());
}

void SymbolIndex::appendExact(const QString& code, QStringList& found) const
{
    const QString withDot = code + QLatin1Char('.');
    for (int i = firstNotBefore(code); i < m_byCode.size(); ++i) {
        const QString& candidate = m_codes.at(m_byCode.at(i));
        if (candidate != code && !candidate.startsWith(withDot))
            return;
        const QString& symbol = m_run.at(m_byCode.at(i));
        if (!found.contains(symbol))
            found.append(symbol);
    }
}

void SymbolIndex::appendByCode(const QString& prefix, int limit, QStringList& found) const
{
    for (int i = firstNotBefore(prefix); i < m_byCode.size() && found.size() < limit; ++i) {
        const int row = m_byCode.at(i);
        if (!m_codes.at(row).startsWith(prefix))
            return;
        if (!found.contains(m_run.at(row)))
            found.append(m_run.at(row));
    }
}

void SymbolIndex::appendByName(const QString& part, int minLength, int limit, QStringList& found) const
{
    const Names& table = namesFor(minLength);
    const auto isBefore = [&table](const Suffix& suffix, QStringView text) {
        return suffixOf(table.names.at(suffix.row), suffix.from).compare(text) < 0;
    };
    const auto& all = table.suffixes;
    auto suffix = std::lower_bound(all.cbegin(), all.cend(), QStringView(part), isBefore);
    for (; suffix != all.cend() && found.size() < limit; ++suffix) {
        if (!suffixOf(table.names.at(suffix->row), suffix->from).startsWith(part))
            return;
        if (!found.contains(m_run.at(suffix->row)))
            found.append(m_run.at(suffix->row));
    }
}

const SymbolIndex::Names& SymbolIndex::namesFor(int minLength) const
{
    const auto known = m_names.find(minLength);
    if (known != m_names.end())
        return known->second;
    return m_names.emplace(minLength, readNames(minLength)).first->second;
}

SymbolIndex::Names SymbolIndex::readNames(int minLength) const
{
    Names table;
    table.names.reserve(m_run.size());
    for (int row = 0; row < m_run.size(); ++row) {
        const QString name = searchForm(OrloBusinessDataInterface::GetSecurityChineseName(m_run.at(row)));
        // A suffix shorter than the shortest search can never match.
        for (int from = 0; from + qMax(1, minLength) <= name.size(); ++from)
            table.suffixes.append({ row, from });
        table.names.append(name);
    }
    std::sort(table.suffixes.begin(), table.suffixes.end(), [&table](const Suffix& a, const Suffix& b) {
        const int order = suffixOf(table.names.at(a.row), a.from).compare(suffixOf(table.names.at(b.row), b.from));
        return order != 0 ? order < 0 : a.row < b.row;
    });
    return table;
}
