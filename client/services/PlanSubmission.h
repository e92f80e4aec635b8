#pragma once

#include "PlanEvents.h"

#include <functional>
#include <optional>

/// Checks plans that are sent and stores them in one transaction. The session must be open.
namespace PlanSubmission {

using Record = PlanStore::Record;

/// Creates a plan and returns its id. `request` identifies what is sent: sent again, it is answered with the id of the
/// plan that exists. If COMMIT failed, the plan is looked up by it; `OutcomeUnknown` if that fails, too.
Result<QString> create(const Record& record, const QString& request);
/// Replaces the record of a plan, which was made from this version. If the plan has a later one, refuses it and sets
/// `conflict`. `request` is as for `create`.
Status change(const QString& planId, int version, const Record& record, const QString& request,
    std::optional<PlanConflict>& conflict);

/// Sets what is asked before a plan is stored: a failure refuses it. The window of a form knows what the trader typed
/// and the record does not contain. An empty function removes it.
void setFormCheck(const std::function<Status()>& check);

/// Notes that a request has stored a version of a plan, and emits `planStored`.
void acknowledge(const QString& request, const QString& planId, int version);
/// How a plan differs from a version that was read, as a conflict without a refused record; none if it has no later
/// version, or is unknown.
Result<std::optional<PlanConflict>> changeSince(const QString& planId, int version);

} // namespace PlanSubmission
