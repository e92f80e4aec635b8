#pragma once

#include "Migration.h"

/// The step to schema version 5: a plan and an instruction are one row each, with typed columns, and times are in UTC.
namespace TypedTables {

/// What prevents the step.
QVector<Obstacle> obstacles();
QStringList statements();

} // namespace TypedTables
