#pragma once

#include "Administration.h"

#include <QJsonObject>

/// The users of a database, their logins and rights, the accounts and the limits.
namespace RightsReport {

/// "users" with "id", "name", "login" (boolean) and "accounts" ("account", "types", "reviewed": types under review),
/// "accounts" with "account", "name", "fund", "client", "asset", "branch", "exchanges" and "limits", and "limits", the
/// usual ones. An absent limit is the usual one.
Result<QJsonObject> json(Administration& administration);
/// The same in lines.
QStringList lines(const QJsonObject& report);

} // namespace RightsReport
