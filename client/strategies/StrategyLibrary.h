#pragma once

#include "AesStrategy.h"
#include "StrategyFile.h"

#include <QHash>
#include <QList>
#include <QReadWriteLock>
#include <QStringList>

/// The strategies that a plan can use: those that come with the client, and those of the user's files. Several threads
/// may use it.
///
/// The name of a strategy of the user is its name in the file, "@" and its provider, or the name of the file if it has
/// no provider, so that plans keep their meaning whatever other files there are.
class StrategyLibrary {
public:
    /// The client's own library.
    static StrategyLibrary& instance();

    /// A library of the built-in strategies.
    StrategyLibrary();

    /// Names in library order.
    QStringList names() const;
    /// The strategies in library order.
    QList<AesStrategy> strategies() const;
    /// The strategy of a name; a default-constructed one if it does not exist.
    StrategyDefinition strategy(const QString& name) const;
    /// The names of those strategies that are not meant for a security.
    QStringList namesNotFor(const TradedSecurity& security) const;
    /// The strategy as the algorithm service returns it.
    static AesStrategy summary(const StrategyDefinition& strategy);

    /// Replaces the user's strategies by the usable ones of the files. A strategy with the name of an earlier one gets
    /// an obstacle.
    void setFiles(QVector<StrategyFile>& files);

private:
    void addBuiltIn(const QString& path);
    static QString keyOf(const StrategyDefinition& strategy, const StrategyFile& file);

    mutable QReadWriteLock m_lock;
    QList<StrategyDefinition> m_strategies;
    QHash<QString, int> m_positions;
    int m_builtIn = 0; ///< number of built-in strategies, which are first
};
