#pragma once

#include "AesStrategy.h"
#include "StrategyDefinition.h"

#include <QList>
#include <QStringList>

/// The strategies that come with the client. Immutable after construction, so several threads may use it.
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
    /// The strategy as the algorithm service returns it.
    static AesStrategy summary(const StrategyDefinition& strategy);

private:
    void addFile(const QString& path);

    QList<StrategyDefinition> m_strategies;
};
