#pragma once

#include "DayIssue.h"
#include "PlanCheck.h"

/// Checks and stores many plans of a user by the rules of single ones. What their checks need, is read once for equal
/// plans. Use it within one transaction; it needs no session, so that it can run on another thread.
class PlanIntake {
public:
    /// `scene`: its user sends the plans on its day.
    PlanIntake(Database& database, const IssueScene& scene);

    /// Finds out why a record cannot become a new plan: `refused` is success if it can. Fails if the database does.
    Status checkNew(const PlanStore::Record& record, Status& refused);
    /// The same for a change of a plan to a record.
    Status checkChange(const StoredPlan& plan, const PlanStore::Record& record, Status& refused);
    /// Stores a plan that was checked; see `PlanStore`.
    Result<QString> create(const PlanStore::Record& record, const QString& request);
    Status change(const StoredPlan& plan, const PlanStore::Record& record, const QString& request);

    PlanStore& plans() { return m_plans; }

private:
    Result<PlanCheck::Known> known(const PlanStore::Record& record);
    Result<QVector<qint64>> closes(const Security& security);
    Result<double> sellable(const PlanStore::Record& record, const Security& security);
    Change changeNow(const QString& request) const;

    Database& m_database;
    const IssueScene m_scene;
    PlanStore m_plans;
    PlanRightsReader m_rights;
    QHash<QString, QVector<qint64>> m_closes;
    QHash<QStringList, double> m_sellable;
};
