#pragma once

#include "PlanStore.h"
#include "Status.h"

#include <QObject>
#include <QStringList>

/// A change that someone else made to a plan after it was read.
struct PlanConflict {
    /// The plan in the version that was read, and as it is stored now.
    StoredPlan opened;
    StoredPlan stored;
    /// The record that was refused because of the change; empty if none was sent.
    PlanStore::Record refused;
    /// Who stored the present version, by name, and when.
    QString user;
    QDateTime time;
};

/// A request whose COMMIT was not answered.
enum class UnknownRequest { Plan, State, Issue, Signature };

/// The signals about changes of stored plans and about answers to queries. One object per process.
class PlanEvents : public QObject {
    Q_OBJECT

public:
    static PlanEvents& instance();

    /// Logs a failed read that its caller cannot return, and emits `readFailed`.
    void report(const Status& failure);

Q_SIGNALS:
    /// Stored data could not be read, and a service answered with a refusal instead of the data.
    void readFailed(const Status& failure);
    /// Whether a request was stored is not known; and known afterwards, when the database could be read again.
    /// `planId`: the plan of a stored request that created or changed one.
    void outcomeUnknown();
    void outcomeKnown(UnknownRequest request, bool isStored, const QString& planId);
    /// A plan that was sent is refused. Emitted before the service answers.
    void planRefused(const Status& reason);
    /// A plan was created or modified, and the change is stored. Not emitted if that becomes known afterwards.
    void planStored(const QString& planId);
    /// The states of plans were changed, or plans got instructions or refusals, and that is stored.
    void plansStored();
    /// Another client may have changed stored plans or instructions.
    void plansChanged();
    /// The connection to the database's server is lost; and an attempt to connect again has failed.
    void connectionLost();
    void connectionStillLost(const Status& reason);
    /// The database is open again, with what others have changed meanwhile.
    void connectionRestored();
    /// A change was refused because the plan was changed since it was read. Emitted before the service answers.
    void planConflict(const PlanConflict& conflict);
    /// The answer to a moving-average query: names of the averages that the security has. Emitted on another thread
    /// than the query's.
    void averagesAnswered(const QString& symbol, const Result<QStringList>& names);

private:
    PlanEvents() = default;
};
