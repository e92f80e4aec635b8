#pragma once

#include "store/Database.h"

/// The strategies that come with the client, and for which plans they are allowed, as a new database gets them.
namespace SampleStrategyLists {

/// Writes everything in one transaction, after the market.
QString write(Database& database);

} // namespace SampleStrategyLists
