#pragma once

#include "DayIssue.h"
#include "Importer.h"
#include "PlanIntake.h"
#include "PlanSheet.h"

/// Imports plans as the plan service would store them. A row that was imported before is found by the request of its
/// creation, also after a lost connection, and a row of an exported plan by its number and creation.
class PlanImporter : public Importer {
public:
    /// `scene`: its user creates the plans on its day. `templatePlan`: the id of the plan that has what the rows do not
    /// have; empty for none. In a trial, the numbers of new plans are not known.
    PlanImporter(
        Database& database, const IssueScene& scene, const QString& templatePlan, bool isTrial, ImportReport& report);

    const TransferForm& form() const override;
    Status begin() override;
    Status take(ImportRow& row) override;

private:
    void applyTemplate(ImportRow& row) const;
    QString referenceOf(ImportRow& row);
    Result<StoredPlan> exportedPlan(const ImportRow& row);
    Result<StoredPlan> importedPlan(const QString& request);
    Status create(ImportRow& row, const QString& request);
    Status change(ImportRow& row, const StoredPlan& plan, bool isExported);
    static void checkVersion(ImportRow& row, const StoredPlan& plan);
    /// Whether the plan has had the record: 1 or 0.
    Result<int> wasApplied(const StoredPlan& plan, const PlanStore::Record& record);

    Database& m_database;
    const StoredUser m_user;
    const QString m_templatePlan;
    const bool m_isTrial;
    QStringList m_template; ///< its row
    PlanIntake m_intake;
    PlanSheet m_sheet;
    ImportReport& m_report;
    QHash<QString, int> m_references; ///< how many rows had the same contents
    QHash<QString, qint64> m_lines;   ///< of the rows with a reference
};
