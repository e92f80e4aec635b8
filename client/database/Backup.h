#pragma once

#include "Status.h"

#include <QString>

/// Copies the database into a new file that only its owner can read: the state after the last transaction. Clients that
/// have the database open are not disturbed, and the database is not changed. Refuses a file that exists; leaves none
/// behind if it fails.
Status backUpDatabase(const QString& database, const QString& file);
