#pragma once

#include "Database.h"
#include "Security.h"
#include "SymbolList.h"

#include <QHash>
#include <QStringList>
#include <QVector>

/// All securities in memory. Read-only after loading, and thread-safe from then on.
class Market {
public:
    /// Loads every security, and replaces the present ones. If reading fails, keeps the market.
    Status load(Database& database);

    int count() const { return m_securities.size(); }
    /// Null if the symbol is unknown; valid until the next `load`.
    const Security* find(const QString& symbol) const;

    /// Symbols whose type matches, whose sub-type is one of `subTypes`, and whose market's end (".SH") ends with one of
    /// `suffixes`. An empty list of suffixes or an empty suffix does not restrict; without sub-types nothing matches.
    /// The result is grouped by sub-type and market. Each group is one run in the market's order, which all results
    /// share, so the cost does not depend on the size of the market.
    SymbolList symbols(const QString& type, const QStringList& subTypes, const QStringList& suffixes) const;
    /// All symbols in these runs.
    SymbolList symbols() const;

private:
    /// Securities of one sub-type in one market.
    struct Group {
        QString type;
        QString subType;
        QString suffix;
        QStringList symbols;
    };

    void index();
    int groupOf(const Security& security, int first);

    QVector<Security> m_securities;
    QHash<QString, int> m_positions;
    QVector<Group> m_groups; ///< in the order of their first securities
};
