#pragma once

#include "HistoryStore.h"
#include "PlanList.h"
#include "PlanScope.h"
#include "StoredPlan.h"
#include "UserStore.h"

#include <QDate>
#include <QHash>
#include <QStringList>
#include <QVector>

#include <limits>

class PlanListQuery;

/// Ids of plans of a day.
struct DayPlans {
    /// Those that have an instruction of the day.
    QStringList issued;
    QStringList due;
};

/// The table of plans.
class PlanStore {
public:
    using Record = QMap<QString, QVariant>;

    /// Every plan.
    explicit PlanStore(Database& database);
    /// The plans of the user's accounts and those assigned to the user. All others are unknown.
    PlanStore(Database& database, const StoredUser& user);

    /// Stores a new plan in one transaction and returns its id. Refuses a record that `RecordCheck` refuses.
    Result<QString> create(const Record& record, const Change& change);
    /// Like `create`, if the rights, accounts, limits and prices still have a version that `ValueReader` has read.
    /// Otherwise stores nothing, and the id is empty.
    Result<QString> createIf(const QString& factsVersion, const Record& record, const Change& change);
    /// Replaces the whole record in one transaction and increments the version. Refuses an unknown id, and a plan that
    /// has a later version than the one that the change was made from.
    Status modify(const QString& planId, int version, const Record& record, const Change& change);
    /// Like `modify`, in the transaction in which the plan was read by `lockedPlan`.
    Status replace(const StoredPlan& plan, const Record& record, const Change& change);
    /// Sets the state, with a reason for the history, which may be empty. Otherwise like `modify`.
    Status setState(const QString& planId, int version, PlanState state, const QString& reason, const Change& change);
    /// Like `setState`, in the transaction in which the plan was read by `lockedPlan`.
    Status replaceState(const StoredPlan& plan, PlanState state, const QString& reason, const Change& change);
    /// Notes the day on which nothing was left of a plan, which keeps its version.
    Status complete(const StoredPlan& plan, const QDate& day, const Change& change);

    /// Empty if the id is unknown.
    Result<Record> record(const QString& planId);
    /// A default plan (empty id) if the id is unknown.
    Result<StoredPlan> plan(const QString& planId);
    /// The plans with these ids, oldest first, without unknown ones.
    Result<QVector<StoredPlan>> plans(const QStringList& planIds);
    Result<QHash<QString, StoredPlan>> plansById(const QStringList& planIds);
    /// The plans of a slice, in the order of the list; empty after its end.
    Result<QVector<StoredPlan>> page(const PlanList& list, const PlanSlice& slice);
    /// The ids of the same plans.
    Result<QStringList> ids(const PlanList& list, const PlanSlice& slice);
    /// The plans of a page of the list of all plans, newest first.
    Result<QVector<StoredPlan>> page(int offset, int limit);
    /// The number of plans of a list. From `most` on it may be too small.
    Result<int> count(const PlanList& list = {}, int most = std::numeric_limits<int>::max());
    /// The number of plans of a slice.
    Result<int> countOf(const PlanList& list, const PlanSlice& slice);
    /// The places of each `step`-th plan of a list, beginning with the first. Reads the whole list.
    Result<QVector<PlanLandmark>> landmarks(const PlanList& list, int step);
    /// Like `plan`; keeps others from changing the plan and its instructions until the transaction ends.
    Result<StoredPlan> lockedPlan(const QString& planId);
    /// The newest plans of an account that are active or paused, not completed and end on a day or later, for one
    /// security; and the newest ones for any, in every state.
    Result<QVector<StoredPlan>> unended(
        const QString& tradingAccount, const QString& symbol, const QDate& day, int limit);
    Result<QVector<StoredPlan>> newestOf(const QString& tradingAccount, int limit);
    /// The ids of an account's active plans that have not ended before a day, oldest first.
    Result<QStringList> runningOf(const QString& tradingAccount, const QDate& day);
    /// The active plans with the day in their period, oldest first. Within a transaction, they stay as they are.
    Result<DayPlans> plansOfDay(const QDate& day);
    /// Those of them with these ids.
    Result<DayPlans> plansOfDay(const QDate& day, const QStringList& planIds);

private:
    Result<PlanSlice> bounded(const PlanListQuery& query, const PlanSlice& slice);
    Result<QString> create(const Record& record, const Change& change, const SqlQuery& condition);
    Result<QVector<StoredPlan>> read(const SqlQuery& condition, const QString& sorting, bool locks = false);
    Result<QVector<StoredPlan>> newest(const SqlQuery& condition, int limit);
    SqlQuery isPlan(qint64 number) const;
    Result<DayPlans> plansOfDay(const QDate& day, const SqlQuery& condition);
    Result<StoredPlan> planOfVersion(const QString& planId, int version);
    Status update(const StoredPlan& plan, const SqlQuery& assignment, const HistoryEntry& entry, const Change& change);
    Result<int> number(const SqlQuery& query);

    Database& m_database;
    const PlanScope m_scope;
};
