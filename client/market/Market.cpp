#include "Market.h"

#include "SecurityStore.h"

#include <QStringView>

#include <algorithm>
#include <utility>

namespace {

/// The point and the market at the end of a symbol; empty if there is no point.
QStringView suffixOf(const QString& symbol)
{
    const int point = symbol.lastIndexOf(QLatin1Char('.'));
    return point < 0 ? QStringView() : QStringView(symbol).mid(point);
}

bool endsWithOne(const QString& suffix, const QStringList& suffixes)
{
    return suffixes.isEmpty() || std::any_of(suffixes.cbegin(), suffixes.cend(), [&suffix](const QString& end) {
        return suffix.endsWith(end);
    });
}

} // namespace

Status Market::load(Database& database)
{
    SecurityStore store(database);
    QVector<Security> securities;
    Status status = store.readAll([&securities](Security&& security) { securities.append(std::move(security)); });
    if (!status)
        return status;
    m_securities = securities;
    index();
    return {};
}

void Market::index()
{
    m_positions.clear();
    m_groups.clear();
    m_positions.reserve(m_securities.size());
    int group = 0;
    for (int i = 0; i < m_securities.size(); ++i) {
        const Security& security = m_securities.at(i);
        m_positions.insert(security.symbol, i);
        group = groupOf(security, group);
        m_groups[group].symbols.append(security.symbol);
    }
}

// Tries the previous group first, because neighbours are mostly in the same group.
int Market::groupOf(const Security& security, int first)
{
    const QStringView suffix = suffixOf(security.symbol);
    const auto matches = [&security, suffix](const Group& group) {
        return group.subType == security.subType && group.type == security.type && group.suffix == suffix;
    };
    if (first < m_groups.size() && matches(m_groups.at(first)))
        return first;
    const auto known = std::find_if(m_groups.cbegin(), m_groups.cend(), matches);
    const int found = static_cast<int>(known - m_groups.cbegin());
    if (found == m_groups.size())
        m_groups.append({ security.type, security.subType, suffix.toString(), {} });
    return found;
}

const Security* Market::find(const QString& symbol) const
{
    const auto position = m_positions.constFind(symbol);
    return position == m_positions.cend() ? nullptr : &m_securities.at(*position);
}

SymbolList Market::symbols(const QString& type, const QStringList& subTypes, const QStringList& suffixes) const
{
    SymbolList found;
    for (const Group& group : m_groups) {
        if (group.type == type && subTypes.contains(group.subType) && endsWithOne(group.suffix, suffixes))
            found += group.symbols;
    }
    return found;
}

SymbolList Market::symbols() const
{
    SymbolList all;
    for (const Group& group : m_groups)
        all += group.symbols;
    return all;
}
