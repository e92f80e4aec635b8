#pragma once

#include "store/Database.h"

/// For which plans the strategies that come with the client are allowed, as a new database gets it.
namespace SampleStrategyLists {

/// Writes everything in one transaction, after the market.
QString write(Database& database);

} // namespace SampleStrategyLists
