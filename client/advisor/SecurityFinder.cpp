#include "SecurityFinder.h"

#include "PinyinInitials.h"
#include "SymbolSearch.h"

#include <algorithm>

namespace {

bool isTypedInitials(const QString& text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() < 0x80 && c.isLetterOrNumber(); });
}

} // namespace

SecurityFinder::SecurityFinder(const QVector<QStringList>& runs, const Market& market)
    : m_runs(runs)
    , m_market(market)
{
    prepare();
}

QString SecurityFinder::nameOf(const QString& symbol) const
{
    const Security* const security = m_market.find(symbol);
    return security ? security->name : QString();
}

// The search box has prepared the names. The functions run on other threads, and the market outlives the indexes.
void SecurityFinder::prepare() const
{
    const Market* const market = &m_market;
    const auto name = [market](const QString& symbol) {
        const Security* const security = market->find(symbol);
        return security ? security->name : QString();
    };
    SymbolIndexes::instance().prepare(m_runs, name);
    SymbolIndexes::ofInitials().prepare(
        m_runs, [name](const QString& symbol) { return PinyinInitials::of(name(symbol)); });
}

bool SecurityFinder::isReady() const
{
    return SymbolSearch(m_runs).stage() == SymbolSearch::CodesAndNames
        && SymbolSearch(m_runs, SymbolIndexes::ofInitials()).stage() == SymbolSearch::CodesAndNames;
}

void SecurityFinder::setHeld(const QHash<QString, qint64>& held)
{
    m_held = held;
    m_holdings.clear();
    for (auto holding = held.cbegin(); holding != held.cend(); ++holding) {
        const QString& symbol = holding.key();
        const QString name = nameOf(symbol);
        m_holdings << Holding{ symbol, searchForm(symbol), searchForm(name), PinyinInitials::of(name) };
    }
    std::sort(m_holdings.begin(), m_holdings.end(), [](const Holding& a, const Holding& b) { return a.code < b.code; });
}

QStringList SecurityFinder::find(const QString& text, int limit) const
{
    const QString wanted = searchForm(text.trimmed());
    const bool isInitials = isTypedInitials(wanted);
    const SymbolSearch names(m_runs);
    QStringList found;
    for (const Holding& holding : m_holdings) {
        const bool fits = holding.code.startsWith(wanted) || holding.name.contains(wanted)
            || (isInitials && holding.initials.contains(wanted));
        if (fits && found.size() < limit && !names.exact(holding.code).isEmpty())
            found << holding.symbol;
    }
    if (wanted.isEmpty())
        return found;
    names.appendByCode(wanted, limit, found);
    names.appendByName(wanted, limit, found);
    if (isInitials)
        SymbolSearch(m_runs, SymbolIndexes::ofInitials()).appendByName(wanted, limit, found);
    return found;
}
