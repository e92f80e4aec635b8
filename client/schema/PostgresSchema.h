#pragma once

#include "Migration.h"

/// The tables of a server's database, in its schema `plandesk`, as a list of steps. They hold what a file's tables
/// hold.
namespace PostgresSchema {

/// Every step since the empty schema, ascending and without gaps.
const QVector<Migration>& migrations();
/// The version that this program reads and writes.
int latestVersion();

} // namespace PostgresSchema
