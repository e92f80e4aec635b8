#pragma once

#include "Options.h"

/// Opens the database of the options and logs in their user. A new database gets its sample data, with a progress
/// dialog, or on the console without a window.
Status startSession(const Options& options);

/// The absolute path of the options' database.
QString databaseOf(const Options& options);
