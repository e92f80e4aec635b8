#pragma once

#include "AlgorithmChoice.h"
#include "ParamListWidget_single.h"

#include <functional>

/// The client's data of an algorithm parameter widget.
class ParamListWidget_single::Private {
public:
    AlgorithmChoice choice;
    /// Called after `setBaseInfoData`, with its map.
    std::function<void(const QMap<QString, QVariant>&)> baseDataTaken;
};
