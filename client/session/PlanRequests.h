#pragma once

#include "PlanStore.h"

#include <QMap>

/// The ids of requests to store plans. A request whose outcome is unknown keeps its id: if it was stored all the same
/// and the trader sends it again, it is not stored twice, whatever other forms have sent meanwhile.
class PlanRequests {
public:
    /// A new id, unlike all others.
    static QString newId();
    /// The id for a record: that of the kept request with the same record, otherwise a new one.
    QString idOf(const PlanStore::Record& record) const;
    /// Keeps the id of a request whose outcome is unknown.
    void keep(const QString& id, const PlanStore::Record& record) { m_records.insert(id, record); }
    /// Drops it once the outcome is known.
    void forget(const QString& id) { m_records.remove(id); }
    void clear() { m_records.clear(); }

private:
    QMap<QString, PlanStore::Record> m_records; ///< by the request's id
};
