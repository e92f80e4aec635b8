#pragma once

#include "Database.h"
#include "Security.h"

#include <QDate>
#include <QStringList>

#include <functional>

/// Closing prices of a security in whole ticks, oldest first.
struct CloseHistory {
    /// Invalid when there are none.
    QDate lastDay;
    QVector<qint64> ticks;
};

/// Securities and their closing prices.
class SecurityStore {
public:
    explicit SecurityStore(Database& database);

    /// Opens the statements that `add` runs; call within the transaction that adds.
    void beginAdding();
    /// Appends a security, with its closes when it has any.
    Status add(const Security& security, const CloseHistory& closes);

    /// Hands every security to `take` in the order in which they were added.
    Status readAll(const std::function<void(Security&&)>& take);
    int count();
    /// Empty when the symbol is unknown, has no closes, or its closes are damaged.
    CloseHistory closes(const QString& symbol);
    /// The first symbols of the sub-type in stored order whose ends match `suffix` (an empty one matches all).
    QStringList firstSymbols(const QString& subType, const QString& suffix, int limit);

private:
    Database& m_database;
    QSqlQuery m_addSecurity;
    QSqlQuery m_addCloses;
};
