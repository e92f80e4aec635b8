#pragma once

#include "StrategyDefinition.h"
#include "StrategyElement.h"
#include "StrategyRemarks.h"

#include <QHash>

/// One strategy of a file, as far as it could be read.
struct ReadStrategy {
    StrategyDefinition definition;
    StrategyRemarks remarks;

    bool isRead() const { return bool(remarks.refusal); }
    /// True if a plan can use the strategy.
    bool isUsable() const { return isRead() && remarks.obstacles.isEmpty(); }
};

/// What a strategy shares with the others of its file.
struct SharedParts {
    int identifierTag = 0;
    int versionTag = 0;
    bool sendsParameterGroup = false;
    QHash<QString, const StrategyElement*> edits; ///< named conditions of the file; null if several have the name
};

/// Reads one strategy.
namespace StrategyReader {

ReadStrategy read(const StrategyElement& element, const SharedParts& shared);

} // namespace StrategyReader
