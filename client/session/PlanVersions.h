#pragma once

#include "StoredPlan.h"

#include <QCache>
#include <QHash>
#include <QMultiHash>
#include <QString>

/// The versions of plans that this client has read. A change is made from one of them, so that a later change by
/// someone else is not overwritten.
class PlanVersions {
public:
    /// Notes that a version was read or stored.
    void note(const QString& planId, int version);
    /// Notes that a plan was read.
    void noteRead(const StoredPlan& plan);
    /// A plan as it was read last; a default plan if it was not, or if many others were read since.
    StoredPlan lastRead(const QString& planId) const;
    /// Pins a version: as long as it is pinned, reading the plan again does not make a later version the one that
    /// changes are made from. Several forms may pin a plan, each its own version.
    void pin(const QString& planId, int version);
    void unpin(const QString& planId, int version);
    /// The version that a change is made from: the oldest one that is pinned, otherwise the last one that was noted.
    /// 0 if the plan was not read.
    int of(const QString& planId) const;
    void clear();

private:
    static constexpr int MostRead = 100;

    QHash<QString, int> m_noted;
    QCache<QString, StoredPlan> m_read{ MostRead };
    QMultiHash<QString, int> m_pinned;
};
