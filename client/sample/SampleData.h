#pragma once

#include "SampleMarket.h"

/// The sample data of a new database: market, texts, strategy lists and users.
namespace SampleData {

/// Writes the data with closes up to the last trade day before today. `marketSize`: number of securities, 0 for the
/// usual one. Call it within a transaction, which is rolled back if it fails.
Status write(Database& database, int marketSize, const SampleMarket::Progress& progress);

/// Writes what every database needs, but no sample: the texts of codes and the agreement.
Status writeTexts(Database& database);
/// Whether neither of both was written: 1 or 0.
Result<int> isUnwritten(Database& database);

} // namespace SampleData
