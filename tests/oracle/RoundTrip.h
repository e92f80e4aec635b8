#pragma once

#include "World.h"

namespace oracle {

/// Opens a stored plan that an editor has built for edit and for copy, on the day of the world and once more when it
/// has begun, presses OK and tells in sentences where what is sent is not what it must be.
QStringList troublesOfRoundTrips(const World& world, const QString& planId);

} // namespace oracle
