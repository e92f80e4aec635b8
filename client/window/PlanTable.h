#pragma once

#include "PlanTableModel.h"

#include <QTableView>

/// The table of the stored plans.
class PlanTable : public QTableView {
    Q_OBJECT

public:
    explicit PlanTable(QWidget* parent);

    /// Reads the plans again. The current plan stays current, and the rows that are visible stay where they are, also
    /// if there are new plans above them. If it fails, the table shows what was read before.
    Status refresh();
    /// The number of stored plans.
    int planCount() const { return m_plans->planCount(); }
    /// Whether there may be more plans, which are being counted.
    bool isCounting() const { return m_plans->isCounting(); }
    /// How many plans have appeared above the visible rows since those were visible.
    int newAbove() const { return m_newAbove; }

    /// Makes a plan the current one; an unknown id clears the selection.
    void selectPlan(const QString& planId);
    /// The current plan; a default plan (empty id) if there is none.
    StoredPlan currentPlan() const { return m_plans->plan(currentIndex().row()); }

Q_SIGNALS:
    void currentPlanChanged();
    /// All plans have been counted.
    void counted();

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void makeCurrent(int row);
    void noteCurrent();
    int anchorRow() const;

    PlanTableModel* m_plans;
    QString m_current; ///< id of the current plan
    int m_newAbove = 0;
};
