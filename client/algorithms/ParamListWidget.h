#pragma once

#include "AlgorithmChoice.h"
#include "ParamListWidget_single.h"
#include <functional>

/// What the client keeps behind its algorithm parameter widgets.
class ParamListWidget_single::Private {
public:
    AlgorithmChoice choice;
    /// Called after base data have been taken, with the map that was handed over.
    std::function<void(const QMap<QString, QVariant>&)> baseDataTaken;
};
