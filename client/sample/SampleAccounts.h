#pragma once

#include "Database.h"

#include <QDateTime>

/// Sample users, accounts, authorities, chains, signatures and positions.
namespace SampleAccounts {

/// The default user.
QString defaultUser();
/// Writes everything in one transaction. Takes the securities of the positions from the market in the database.
/// `signedTime` is the time of the signatures.
Status write(Database& database, const QDateTime& signedTime);

} // namespace SampleAccounts
