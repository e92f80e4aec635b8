#pragma once

#include "Status.h"

#include <QString>

class Database;

/// Passwords of a server's roles.
namespace RolePassword {

/// What a server stores instead of the password (SCRAM-SHA-256), so that the password itself is not sent to the server
/// and is in none of its logs. The database must be open on a server.
Result<QString> encrypted(Database& database, const QString& role, const QString& password);

} // namespace RolePassword
