#pragma once

#include "Status.h"

#include <QString>

class QSqlDatabase;

/// Locations of databases on a PostgreSQL server: "postgresql://USER@HOST:PORT/NAME", or "service=NAME" of libpq's
/// service file. Passwords and other settings come from libpq's usual places: password file, service file, environment.
namespace ServerLocation {

/// False for the name of a file.
bool isServer(const QString& location);

/// Refuses a malformed location and one that contains a password.
Status refusal(const QString& location);

/// Sets where a connection leads, and how long it waits for its server. `location` must not be refused.
void apply(const QString& location, QSqlDatabase& connection);

} // namespace ServerLocation
