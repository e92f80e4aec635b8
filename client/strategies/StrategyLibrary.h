#pragma once

#include "AesStrategy.h"
#include "StrategyDefinition.h"
#include <QList>
#include <QStringList>

/// The strategies that come with the client. Does not change once constructed: several threads may use it.
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
    /// The strategy of a name; a default-constructed one when there is none.
    StrategyDefinition strategy(const QString& name) const;
    /// The strategy as the algorithm service hands it out.
    static AesStrategy summary(const StrategyDefinition& strategy);

private:
    void addFile(const QString& path);

    QList<StrategyDefinition> m_strategies;
};
