#pragma once

#include "PlanColumns.h"
#include "PlanStore.h"

/// A part of a list, and how many plans the list has: at least so many unless it is counted.
struct PlanLook {
    PlanList list;
    QVector<ListedPlan> plans;
    bool hasMore = false;
    int count = 0;
    bool isCounted = false;
};

/// Reads plans of a list with their progress, for the table.
namespace PlanReading {

constexpr int PageSize = 100;
/// Counting more takes longer than reading a page.
constexpr int CountedAtOnce = 1000;

/// Reads a slice, at least a page, and counts the list as far as that is quick.
Result<PlanLook> look(const PlanList& list, PlanSlice slice);
/// Reads a slice and whether it could be longer. The session must be open.
Status slice(const PlanList& list, PlanSlice slice, QVector<ListedPlan>& found, bool& hasMore);
/// Appends plans with their progress, or returns why they could not be read.
Status addProgress(const Result<QVector<StoredPlan>>& plans, QVector<ListedPlan>& listed);

} // namespace PlanReading
