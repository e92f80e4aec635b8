#include "market/Market.h"

#include "store/SecurityStore.h"

#include <QMutexLocker>

#include <algorithm>

namespace {

bool endsWithOne(const QString& symbol, const QStringList& suffixes)
{
    return suffixes.isEmpty() || std::any_of(suffixes.cbegin(), suffixes.cend(), [&symbol](const QString& suffix) {
        return symbol.endsWith(suffix);
    });
}

} // namespace

QString Market::load(Database& database)
{
    SecurityStore store(database);
    QVector<Security> securities;
    securities.reserve(store.count());
    const QString reason = store.readAll([&securities](const Security& security) { securities << security; });
    if (!reason.isEmpty())
        return reason;
    QMutexLocker locker(&m_cacheGuard);
    m_cache.clear();
    m_securities = securities;
    m_positions.clear();
    m_positions.reserve(m_securities.size());
    for (int i = 0; i < m_securities.size(); ++i)
        m_positions.insert(m_securities.at(i).symbol, i);
    return QString();
}

const Security* Market::find(const QString& symbol) const
{
    const auto position = m_positions.constFind(symbol);
    return position == m_positions.cend() ? nullptr : &m_securities.at(*position);
}

QStringList Market::symbols(const QString& type, const QStringList& subTypes, const QStringList& suffixes) const
{
    const QString key =
        QStringList{ type, subTypes.join(QLatin1Char('\n')), suffixes.join(QLatin1Char('\n')) }.join(QLatin1Char('\t'));
    QMutexLocker locker(&m_cacheGuard);
    const auto known = m_cache.constFind(key);
    if (known != m_cache.cend())
        return *known;
    return *m_cache.insert(key, collect(type, subTypes, suffixes));
}

QStringList Market::collect(const QString& type, const QStringList& subTypes, const QStringList& suffixes) const
{
    QStringList found;
    for (const Security& security : m_securities) {
        if (security.type == type && subTypes.contains(security.subType) && endsWithOne(security.symbol, suffixes))
            found << security.symbol;
    }
    return found;
}
