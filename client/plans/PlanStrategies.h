#pragma once

#include "Security.h"

#include <QStringList>

/// The strategies that a plan of a security may have.
namespace PlanStrategies {

/// A white list without the strategies that are not meant for the security. An empty list allows every strategy; one
/// with an empty name allows none.
QStringList allowed(const QStringList& whiteList, const Security& security);

/// Whether a strategy cannot trade without a price limit.
bool needsLimit(const QString& strategy);

} // namespace PlanStrategies
