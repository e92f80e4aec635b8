#pragma once

#include "PlanStore.h"

#include <functional>

class PlanRightsReader;

/// The result of a change of several plans' states.
struct StateChanges {
    QStringList changed;

    struct Refused {
        QString planId;
        Status reason;
    };
    QVector<Refused> refused;
    /// True if it was cancelled; the remaining plans are neither changed nor refused.
    bool cancelled = false;
};

/// Pauses, resumes, stops and archives plans. Uses the database alone, so that it can run on another thread.
class PlanStates {
public:
    /// Called after some plans, with the number of those that are done. Returning false cancels the rest.
    using Progress = std::function<bool(int done)>;

    /// Longest reason in characters.
    static constexpr int LongestReason = 200;

    /// `day`: the market's day.
    PlanStates(Database& database, const StoredUser& user, const QDate& day);

    /// Gives the user's plans a state, each if it can get it, a number of them in each transaction. Stopping needs a
    /// reason, which the history keeps. Fails if a plan could not be read or written; those before it are changed.
    Result<StateChanges> set(
        const QStringList& planIds, PlanState state, const QString& reason, const Progress& progress);

private:
    Status setEach(const QStringList& planIds, PlanState state, const QString& reason, StateChanges& changes);
    Status readRefusal(
        PlanRightsReader& rights, const QString& id, const StoredPlan& plan, PlanState state, Status& refused) const;

    Database& m_database;
    const StoredUser m_user;
    const QDate m_day;
};
