#pragma once

#include "ParamListWidget_single.h"
#include "StrategyMode.h"

/// Creates the widgets of the algorithm service. One object per process.
class OrloStrategyFactory {
public:
    static OrloStrategyFactory& instance(); ///< returns the factory, which lives as long as the process

    /// Creates an algorithm parameter widget, owned by `parent`. `globalType` is one of `Algo_Values::AlgoGlobalType`.
    /// `flags` combines the contents of the widget (1: strategy choice, 2: parameters). Never returns null.
    ParamListWidget_single* CreateStrategyWgt(StrategyMode mode, QWidget* parent, const QString& globalType,
        QStringList whiteList, QStringList blackList, int flags);

private:
    OrloStrategyFactory() = default;
};
