#pragma once

#include "ParamListWidget_single.h"
#include "StrategyMode.h"

/// Makes the widgets of the algorithm service. One per process.
class OrloStrategyFactory {
public:
    static OrloStrategyFactory& instance(); ///< the factory; lives as long as the process

    /// A new algorithm parameter widget, owned by `parent`. `globalType` is one of `Algo_Values::AlgoGlobalType`.
    /// `flags` says what the widget offers (1: strategy choice, 2: parameters). Never null.
    ParamListWidget_single* CreateStrategyWgt(StrategyMode mode, QWidget* parent, const QString& globalType,
        QStringList whiteList, QStringList blackList, int flags);

private:
    OrloStrategyFactory() = default;
};
