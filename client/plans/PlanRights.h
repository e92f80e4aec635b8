#pragma once

#include "AuthorityStore.h"
#include "LimitStore.h"
#include "PlanStore.h"

#include <QDate>
#include <QHash>

/// What a user may do with instructions of a plan.
struct PlanRights {
    OrderRights order;
    AccountLimits limits;

    /// Why the user may not trade with the plan's account, instruction type and side; success if that is allowed.
    Status tradeError(const PlanStore::Record& record) const;
    /// Why the plan cannot be actively managed; success if it is not or may be.
    Status reviewError(const PlanStore::Record& record) const;
    /// Why the plan's executor or assignee cannot handle it; success if they can, or if there is none.
    Status handlerError(const PlanStore::Record& record) const;
};

/// Reads rights from the database, those of a user and of plans that have the same account, exchange, type and handlers
/// once. Use it within one transaction.
class PlanRightsReader {
public:
    /// `day`: the day for which the limits are read.
    PlanRightsReader(Database& database, const QDate& day);

    Result<PlanRights> read(const QString& userId, const PlanStore::Record& record);

    /// The rights under which a user handles a plan: his own, or those of its creator if the plan is assigned to him.
    Result<PlanRights> ofHandler(const QString& userId, const StoredPlan& plan);

    /// Adds the rights for a record to what is read.
    static void addTo(ValueReader& reader, const QString& userId, const PlanStore::Record& record, const QDate& day,
        PlanRights& rights);

private:
    Database& m_database;
    const QDate m_day;
    QHash<QStringList, PlanRights> m_known;
};
