#pragma once

#include "World.h"

namespace model {

/// Opens a stored plan that an editor has built for edit and for copy, today and once more when it has begun, presses
/// OK and tells in sentences where what is sent is not what it must be. Today stays as it is.
QStringList roundTripErrors(const World& world, const QString& planId);

} // namespace model
