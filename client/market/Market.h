#pragma once

#include "market/Security.h"
#include "store/Database.h"

#include <QHash>
#include <QMutex>
#include <QStringList>
#include <QVector>

/// Every security in memory. Read-only once loaded, and then safe to ask from any thread.
class Market {
public:
    /// Loads every security, replacing what was there. Returns the reason when reading fails; the market is then
    /// as it was.
    QString load(Database& database);

    int count() const { return m_securities.size(); }
    const QVector<Security>& securities() const { return m_securities; }
    /// Null when the symbol is unknown; valid until the next `load`.
    const Security* find(const QString& symbol) const;

    /// Symbols in the market's order whose type matches, whose sub-type is one of `subTypes`, and which end with one
    /// of `suffixes`. An empty list of suffixes or an empty suffix does not restrict; without sub-types nothing
    /// matches. A repeated question answers with the same shared list.
    QStringList symbols(const QString& type, const QStringList& subTypes, const QStringList& suffixes) const;

private:
    QStringList collect(const QString& type, const QStringList& subTypes, const QStringList& suffixes) const;

    QVector<Security> m_securities;
    QHash<QString, int> m_positions;
    mutable QMutex m_cacheGuard;
    mutable QHash<QString, QStringList> m_cache;
};
