#pragma once

#include "Status.h"
#include "StoredPlan.h"

#include <QDate>

/// A plan's state as a trader sees it on a day.
enum class PlanStage {
    NotStarted, ///< begins later
    Running,
    Failed, ///< active, but its last day got no instruction
    Paused,
    Stopped,
    Completed,
    Expired, ///< ended before everything was issued
    Archived
};

/// The states of a plan's life, and which ones follow which.
namespace PlanLife {

/// `lastDayFailed`: whether the plan got no instruction on its last day, see `InstructionStore::lastDays`.
PlanStage stage(const StoredPlan& plan, bool lastDayFailed, const QDate& day);
/// The word for a stage, for example "已暂停".
QString word(PlanStage stage);
/// The word for a stored state, which does not depend on a day.
QString word(PlanState state);
/// Why a plan cannot get a state on a day; success if it can. A plan that runs is paused, a paused one is resumed, and
/// both are stopped. One that has ended is archived. A stopped or archived one never runs again.
Status stateError(const StoredPlan& plan, PlanState state, const QDate& day);
/// Why the record of a plan cannot be changed; success if it can.
Status changeError(const StoredPlan& plan);

} // namespace PlanLife
