#pragma once

#include "Options.h"

/// Opens the database of the options and logs in their user. The window and the walk-through create a missing database
/// with sample data and show the progress, in a dialog or on the console. Otherwise a missing one is refused.
Status startSession(const Options& options);

/// The absolute path of the options' database.
QString databaseOf(const Options& options);
