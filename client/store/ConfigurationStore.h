#pragma once

#include "Database.h"

#include <QHash>
#include <QPair>
#include <QStringList>

/// The lists that allow and forbid algorithm strategies.
class StrategyStore {
public:
    explicit StrategyStore(Database& database);

    /// Replaces the names allowed for the three; an empty symbol means every security without its own list.
    Status setWhiteList(
        const QString& instructionType, const QString& targetType, const QString& symbol, const QStringList& names);
    /// The security's own list, otherwise the one for every security; empty if neither exists.
    Result<QStringList> whiteList(const QString& instructionType, const QString& targetType, const QString& symbol);

    Status setBlackList(const QString& targetType, const QStringList& names);
    Result<QStringList> blackList(const QString& targetType);

private:
    struct ListKey {
        QString list;
        QString instructionType;
        QString targetType;
        QString symbol;
    };

    Status setList(const ListKey& key, const QStringList& names);

    Database& m_database;
};

/// Static configuration: texts by category and key.
class StaticTextStore {
public:
    explicit StaticTextStore(Database& database);

    Status set(const QString& category, const QString& key, const QString& text);
    /// All of them, by category and key.
    Result<QHash<QPair<QString, QString>, QString>> texts();

private:
    Database& m_database;
};
