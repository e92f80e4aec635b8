#pragma once

#include "DayIssue.h"
#include "ImportReport.h"
#include "TableReader.h"

#include <optional>

/// What is imported, from where and to where.
struct ImportTask {
    /// A kind of `TransferForms::importable`.
    QString kind;
    QString file;
    /// What is read in place of the file, whose name is only shown.
    std::optional<QByteArray> contents = {};
    /// The database. On a server, plans are imported by a user, and everything else by its administrator.
    QString location;
    /// The database's file if it is open; see `Database::open`.
    FileIdentity databaseFile = {};
    /// The user and the market of plans; absent for other kinds.
    std::optional<IssueScene> scene;
    /// Removes what the file does not have, if it is among these.
    bool replaces = false;
    QStringList removals;
    /// The id of the plan that has what the rows of plans do not have; empty for none.
    QString templatePlan;
    /// With a template, stores the rows that are right although others are refused.
    bool leavesOut = false;
    /// Checks everything and stores nothing.
    bool isTrial = false;
    /// Called from time to time with the part of the file that was read, in thousandths; returning false cancels the
    /// import.
    std::function<bool(int perMille)> progress;
};

namespace ImportRun {

/// Imports a file in one transaction on a connection of its own, so that it can run on any thread. Success means that
/// it was stored, or could be in a trial. If a row is refused, nothing is stored: `FileNotImported`, and the report has
/// the reasons. `ImportNotConfirmed`, if something would be removed that the task does not list.
/// `OutcomeUnknown`, if a server did not answer; what it has stored all the same is not stored twice when the file is
/// imported again. The report is cleared first, except for its limits.
Status run(const ImportTask& task, ImportReport& report);

/// Fails if there is no such kind, or if it cannot be replaced.
Status check(const QString& kind, bool replaces);

} // namespace ImportRun
