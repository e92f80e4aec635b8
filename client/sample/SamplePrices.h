#pragma once

#include "SampleBoards.h"

/// Simulated closing prices.
namespace SamplePrices {

/// A random walk of `days` closes in ticks, oldest first. Every close is at least one tick and within the daily limit
/// of the previous one (`limitPerMille`, 0 means no limit).
QVector<qint64> closes(SampleKind kind, int days, int limitPerMille, SampleRandom& random);

} // namespace SamplePrices
