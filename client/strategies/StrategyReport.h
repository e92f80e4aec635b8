#pragma once

#include "StrategyFile.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QStringList>

/// What was read of strategy files, as texts for people and as JSON for programs.
class StrategyReport {
    Q_DECLARE_TR_FUNCTIONS(StrategyReport)

public:
    /// The state of a strategy: "offered", "not offered" or "refused".
    static QString state(const ReadStrategy& strategy);
    /// The same in words.
    static QString stateText(const ReadStrategy& strategy);

    /// A line for the file, one for each strategy, and one for each remark.
    static QStringList lines(const StrategyFile& file);
    static QJsonObject json(const StrategyFile& file);
};
