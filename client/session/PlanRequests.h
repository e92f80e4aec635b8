#pragma once

#include "PlanStore.h"

/// The ids of requests to store plans. A request that was not acknowledged keeps its id: if it was stored all the same
/// and the trader sends it again, it is not stored twice.
class PlanRequests {
public:
    /// A new id, unlike all others.
    static QString newId();
    /// The id for a record: that of the kept request if it had the same record, otherwise a new one.
    QString idOf(const PlanStore::Record& record) const;
    /// Keeps the id of a request that was not acknowledged.
    void keep(const QString& id, const PlanStore::Record& record);
    /// Drops it, after an acknowledgement.
    void clear();

private:
    QString m_id;
    PlanStore::Record m_record;
};
