#pragma once

#include "World.h"

namespace model {

/// Opens a created plan for edit and for copy, today and on its first day, and presses OK each time. Returns the
/// differences between the sent and the expected records, one sentence each. Does not change today.
QStringList roundTripErrors(const World& world, const QString& planId);

} // namespace model
