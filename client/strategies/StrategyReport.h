#pragma once

#include "StrategyFile.h"

#include <QJsonObject>
#include <QStringList>

/// What was read of strategy files, as texts for people and as JSON for programs.
namespace StrategyReport {

/// The state of a strategy: "offered", "not offered" or "refused".
QString state(const ReadStrategy& strategy);
/// The same in Chinese.
QString stateText(const ReadStrategy& strategy);

/// A line for the file, one for each strategy, and one for each remark.
QStringList lines(const StrategyFile& file);
QJsonObject json(const StrategyFile& file);

} // namespace StrategyReport
