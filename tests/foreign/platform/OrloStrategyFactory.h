#pragma once

#include "ParamListWidget_single.h"

enum class StrategyMode { Single };

class OrloStrategyFactory {
public:
    static OrloStrategyFactory& instance()
    {
        static OrloStrategyFactory only;
        return only;
    }
    ParamListWidget_single* CreateStrategyWgt(
        StrategyMode, QWidget* parent, const QString&, const QStringList&, const QStringList&, int)
    {
        return new ParamListWidget_single(parent);
    }
};
