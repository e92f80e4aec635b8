#pragma once

#include "store/Database.h"

#include <QStringList>
#include <QVector>

struct StoredStrategy {
    QString name;
    /// As displayed.
    QString alias;
    /// The file that defines its parameters.
    QString file;
};

/// Algorithm strategies and the lists that allow and forbid them.
class StrategyStore {
public:
    explicit StrategyStore(Database& database);

    /// Replaces every strategy; their order is kept.
    QString setStrategies(const QVector<StoredStrategy>& strategies);
    QVector<StoredStrategy> strategies();

    /// Replaces the names allowed for the three; an empty symbol stands for every security without a list of its own.
    QString setWhiteList(
        const QString& instructionType, const QString& targetType, const QString& symbol, const QStringList& names);
    /// The security's own list, else the one for every security; empty when neither exists.
    QStringList whiteList(const QString& instructionType, const QString& targetType, const QString& symbol);

    QString setBlackList(const QString& targetType, const QStringList& names);
    QStringList blackList(const QString& targetType);

private:
    struct ListKey {
        QString list;
        QString instructionType;
        QString targetType;
        QString symbol;
    };

    QString setList(const ListKey& key, const QStringList& names);
    QStringList list(const ListKey& key);

    Database& m_database;
};
