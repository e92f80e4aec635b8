#pragma once

#include "SampleMarket.h"

/// Everything that a new database gets: market, texts, strategy lists and users.
namespace SampleData {

/// Writes the data with closes up to the last trade day before today. `marketSize`: number of securities, 0 for the
/// usual one. Call it within a
/// transaction, which undoes it when it fails.
Status write(Database& database, int marketSize, const SampleMarket::Progress& progress);

} // namespace SampleData
