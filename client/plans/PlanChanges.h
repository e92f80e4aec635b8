#pragma once

#include "PlanStore.h"

#include <QStringList>

/// The differences between two contents of a plan.
namespace PlanChanges {

/// The form's caption of a field of the plan record or of its other parameters; the key itself if it has none.
QString caption(const QString& key);
/// Captions of the fields that differ, in the order of the form.
QStringList captions(const PlanStore::Record& before, const PlanStore::Record& after);

} // namespace PlanChanges
