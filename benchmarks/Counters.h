#pragma once

#include <QString>

/// Counts the flushes of files to the disk by this process. The program replaces `fsync` and `fdatasync` of the C
/// library with functions that count and call the system.
namespace Syncs {

struct Counts {
    int log = 0;            ///< flushes of SQLite's log
    int other = 0;          ///< flushes of other files
    qint64 logBytes = 0;    ///< written to the log by the session
    qint64 nanoseconds = 0; ///< spent in flushes
};

/// Resets the counters.
void start();
/// What was counted since.
Counts stop();

} // namespace Syncs

/// Counts requests for a plan and the resulting database reads. The program replaces `AutoPlanLogic::GetPlanInfo` of
/// the client with a function that counts and calls it.
namespace PlanReads {

struct Counts {
    int calls = 0; ///< calls of `AutoPlanLogic::GetPlanInfo`
    int reads = 0; ///< statements that read plans
};

/// Resets the counters. One session must be open.
void start();
/// What was counted since.
Counts stop();

} // namespace PlanReads
