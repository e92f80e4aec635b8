#pragma once

#include "PlanStore.h"

/// The ids of requests to create plans. A request whose outcome is unknown keeps its id, so that the plan is not stored
/// twice if the trader sends it again.
class PlanRequests {
public:
    /// A new id, unlike all others.
    static QString newId();
    /// The id for a record: that of the request whose outcome is unknown if it had the same record, otherwise a new
    /// one.
    QString idOf(const PlanStore::Record& record) const;
    /// Keeps the id of a request whose outcome is unknown.
    void keep(const QString& id, const PlanStore::Record& record);
    /// Drops it: the outcome is known now.
    void clear();

private:
    QString m_id;
    PlanStore::Record m_record;
};
