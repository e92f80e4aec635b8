#pragma once

#include "SampleBoards.h"

/// Invented names; none is meant to be that of a real company.
namespace SampleNames {

/// The name of the `index`-th security of its kind. Shares, funds and trusts each have names of their own, different
/// for every index below 20,000.
QString name(SampleKind kind, int index, SampleRandom& random);
/// The name of a share under special treatment.
QString specialTreatmentName(const QString& flag, int index);

} // namespace SampleNames
