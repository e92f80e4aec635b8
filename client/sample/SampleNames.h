#pragma once

#include "SampleBoards.h"

/// Fictitious names; any real company of the same name is a coincidence.
namespace SampleNames {

/// The name of the `index`-th security of its kind. Shares, funds and trusts have different names, unique for every
/// index below 20,000.
QString name(SampleKind kind, int index, SampleRandom& random);
/// The name of a share under special treatment.
QString specialTreatmentName(const QString& flag, int index);

} // namespace SampleNames
