#pragma once

#include "Options.h"

/// Opens the database that the options name and logs their user in. A new database gets its sample data, with a
/// progress dialog, or on the console where no window is wanted.
Status startSession(const Options& options);

/// The file that is used when none is named, in the user's data folder.
QString usualDatabase();
