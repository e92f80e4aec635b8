#pragma once

#include "SampleBoards.h"

/// Invented closing prices.
namespace SamplePrices {

/// A walk of `days` closes in ticks, oldest first, none below one tick and none beyond the daily limit
/// (`limitPerMille`, 0 means none) of the close before.
QVector<qint64> closes(SampleKind kind, int days, int limitPerMille, SampleRandom& random);

} // namespace SamplePrices
