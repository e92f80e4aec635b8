#pragma once

#include "SampleMarket.h"

/// Everything that a new database gets: market, texts, strategy lists and users.
namespace SampleData {

/// Writes the data with closes up to the last trade day before today. `marketSize`: number of securities, 0 for the
/// usual one. Returns the reason in Chinese when it fails; call it within the transaction that undoes it then.
QString write(Database& database, int marketSize, const SampleMarket::Progress& progress);

} // namespace SampleData
