#pragma once

#include "DayIssue.h"

class ClientSession;

/// Issues a day within the session, which must be open.
class InstructionIssuer {
public:
    /// What the issue of a day is based on, with another connection to the session's database if it runs on another
    /// thread. The session must stay open meanwhile.
    static IssueScene scene(Database& database, const QDate& day);

    /// Issues all plans of a day. Fails if nothing was issued at all; a result that has a failure is incomplete.
    static Result<IssueResult> issueDay(const QDate& day);
    /// Notes what was issued: looks up what may be stored all the same, and lets `PlanEvents` report each issued plan.
    static void finish(IssueResult& result);

    /// Why instructions of a day cannot be issued now, but only simulated; success if they can. Whether a market is
    /// open is checked for each plan.
    static Status liveError(const QDate& day);
};
