#pragma once

#include "DayIssue.h"
#include "PlanRights.h"

/// What plans of a day have in common, read once.
class DayFacts {
public:
    DayFacts(Database& database, const IssueScene& scene);

    Result<PlanRights> rights(const StoredPlan& plan) { return m_rights.ofHandler(m_scene.user.id, plan); }
    Result<QVector<qint64>> closes(const Security& security);
    /// Trade days until the last one, both included.
    int daysUntil(const QString& exchange, const QString& lastDay);
    /// What can still be sold of the plan's security from its account, in displayed units.
    Result<double> sellable(const PlanStore::Record& record, const Security& security);
    /// What can still be spent from the plan's account, in yuan; absent if it is not known.
    Result<std::optional<double>> cash(const PlanStore::Record& record);
    /// Takes from both what an order takes, and adds what it has earned.
    void take(const PlanStore::Record& record, const OrderTerms& terms, const DayOrder& order);

private:
    static QStringList positionOf(const PlanStore::Record& record);

    Database& m_database;
    const IssueScene& m_scene;
    PlanRightsReader m_rights;
    QHash<QString, QVector<qint64>> m_closes;
    QHash<QPair<QString, QString>, int> m_days;
    QHash<QStringList, double> m_sellable;
    QHash<QString, std::optional<double>> m_cash; ///< by account
};
