#pragma once

#include "StrategyDefinition.h"

#include <QDate>
#include <QMap>

/// The values of parameters as FIX messages have them.
namespace WireValue {

/// The value in a message of a day; empty if it is not sent. `stored` must be valid for the parameter.
QString of(const StrategyParameter& parameter, const QString& stored, const QDate& day);

/// The fields of a strategy in a message of a day, "tag=value" separated by "|": its name, its version and its
/// parameters by their tags. If one has no tag, all are in the group of tag 957, if the provider accepts it.
QString fields(const StrategyDefinition& strategy, const QMap<QString, QString>& values, const QDate& day);

} // namespace WireValue
