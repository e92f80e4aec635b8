#pragma once

#include "DayIssue.h"

class ClientSession;

/// Live instructions go out today, in the hours of the markets. Simulated ones can be of any day, at any hour.
enum class IssueMode { Live, Simulated };

/// Issues a day within the session, which must be open.
class InstructionIssuer {
public:
    /// What the issue of a day is based on. The session must stay open as long as it is used.
    static IssueScene scene(const QDate& day, IssueMode mode = IssueMode::Simulated);

    /// Issues all plans of a day. Fails if nothing was issued at all; a result that has a failure is incomplete.
    static Result<IssueResult> issueDay(const QDate& day, IssueMode mode = IssueMode::Simulated);
    /// Notes what was issued: looks up what may be stored all the same, and lets `PlanEvents` report it.
    static void finish(IssueResult& result);

    /// Why instructions of a day cannot be issued now, but only simulated; success if they can. Whether a market is
    /// open is checked for each plan.
    static Status liveError(const QDate& day);
};
