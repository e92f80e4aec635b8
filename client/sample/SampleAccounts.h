#pragma once

#include "Database.h"

#include <QDateTime>

/// Sample users, accounts, authorities, chains, signatures and positions.
namespace SampleAccounts {

/// The user who is logged in unless another is named.
QString defaultUser();
/// Writes everything in one transaction, positions in securities of the market that the database holds. `signedTime`
/// is when the clients who have signed did so.
Status write(Database& database, const QDateTime& signedTime);

} // namespace SampleAccounts
