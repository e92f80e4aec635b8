#pragma once

#include "Migration.h"

/// The database's tables as a list of steps, one per schema version.
namespace SqliteSchema {

/// Every step since the empty file, ascending and without gaps.
const QVector<Migration>& migrations();
/// The version that this program reads and writes.
int latestVersion();
/// The application id in the file header, which identifies this program's files.
int applicationId();

} // namespace SqliteSchema
