#pragma once

#include "PlanStore.h"
#include "TradeCalendar.h"

#include <functional>
#include <optional>

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
    /// Why it ended before all plans were tried; success if they were, or if it was cancelled.
    Status failure;

    /// The last plans that were tried, if their COMMIT failed: they may be changed all the same, all or none.
    struct Unknown {
        QStringList changed;
        QVector<Refused> refused;
        /// Found in the history if they are changed.
        QString request;
        /// The connection that sent the COMMIT, see `Database::process`.
        QString process;
        /// Whether more plans would have followed.
        bool hasMore = false;
    };
    std::optional<Unknown> unknown;
};

/// Pauses, resumes, stops and archives plans. Uses the database alone, so that it can run on another thread.
class PlanStates {
public:
    /// Called after some plans, with the number of those that are done. Returning false cancels the rest.
    using Progress = std::function<bool(int done)>;

    /// Longest reason in characters.
    static constexpr int LongestReason = 200;

    /// `day`: the market's day.
    PlanStates(Database& database, const StoredUser& user, const TradeCalendar& calendar, const QDate& day);

    /// Gives the user's plans a state, each if it can get it, a number of them in each transaction. Stopping needs a
    /// reason, which the history keeps. Days that a plan has missed so far are kept. If a plan cannot be read or
    /// written, those of earlier transactions are changed.
    StateChanges set(const QStringList& planIds, PlanState state, const QString& reason, const Progress& progress);

private:
    Status setEach(const QStringList& planIds, PlanState state, const QString& reason, const QString& request,
        StateChanges& changes);
    Status keepMissedDays(const StoredPlan& plan, const Change& change);
    Status readRefusal(
        PlanRightsReader& rights, const QString& id, const StoredPlan& plan, PlanState state, Status& refused) const;

    Database& m_database;
    const StoredUser m_user;
    const TradeCalendar m_calendar;
    const QDate m_day;
};
