#pragma once

#include "Security.h"
#include "ValueReader.h"

#include <QDate>
#include <QStringList>

#include <functional>

/// Closing prices of a security in whole ticks, oldest first.
struct CloseHistory {
    /// Invalid if there are none.
    QDate lastDay;
    QVector<qint64> ticks;
};

/// Securities and their closing prices.
class SecurityStore {
public:
    explicit SecurityStore(Database& database);

    /// Appends a security with its closes, if any.
    Status add(const Security& security, const CloseHistory& closes);

    /// Replaces the data of the security with this symbol; its place and its closes are kept.
    Status change(const Security& security);
    /// Removes a security with its closes. Nothing may refer to it.
    Status remove(const QString& symbol);
    /// Replaces the closes of a security; none are removed.
    Status setCloses(const QString& symbol, const CloseHistory& closes);
    /// A default security (empty symbol) if unknown.
    Result<Security> security(const QString& symbol);
    /// The symbols to which plans or positions refer, ascending.
    Result<QStringList> usedSymbols();

    /// Calls `take` with every security in the order of addition.
    Status readAll(const std::function<void(Security&&)>& take);
    Result<int> count();
    /// Empty if the symbol is unknown or has no closes. Refuses damaged ones.
    Result<CloseHistory> closes(const QString& symbol);
    /// Adds the same to what is read.
    static void addTo(ValueReader& reader, const QString& symbol, CloseHistory& closes);
    /// The first symbols of the sub-type with the suffix, in stored order; an empty suffix matches all.
    Result<QStringList> firstSymbols(const QString& subType, const QString& suffix, int limit);

private:
    Database& m_database;
};
