#pragma once

#include "Status.h"

#include <QObject>
#include <QStringList>

/// Announces what has changed about stored plans and what was found out for them. One per process.
class PlanEvents : public QObject {
    Q_OBJECT

public:
    static PlanEvents& instance();

Q_SIGNALS:
    /// A plan was created, modified or has got new instructions, and is stored so.
    void planStored(const QString& planId);
    /// The answer to a moving-average query: names of the averages that the security has. Emitted on another thread
    /// than the query's.
    void averagesAnswered(const QString& symbol, const Result<QStringList>& names);

private:
    PlanEvents() = default;
};
