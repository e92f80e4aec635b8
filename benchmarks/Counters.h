#pragma once

#include <QString>

/// Flushes of files to the disk by this process. The program's own `fsync` and `fdatasync` stand before those of the C
/// library, count, and go on to the system.
namespace Syncs {

struct Counts {
    int log = 0;        ///< of SQLite's log
    int other = 0;      ///< of any other file
    qint64 logSize = 0; ///< size of the log at its last flush, in bytes
};

/// Starts to count, from 0.
void start();
/// What was counted since.
Counts stop();

} // namespace Syncs

/// Questions for a plan and what the database is asked for them. The program's own `AutoPlanLogic::GetPlanInfo` stands
/// before the client's, counts, and asks it.
namespace PlanReads {

struct Counts {
    int calls = 0; ///< calls of `AutoPlanLogic::GetPlanInfo`
    int reads = 0; ///< statements that read plans
};

/// Starts to count, from 0. There must be one open session.
void start();
/// What was counted since.
Counts stop();

} // namespace PlanReads
