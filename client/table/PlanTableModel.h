#pragma once

#include "PlanColumns.h"
#include "PlanCounter.h"
#include "PlanReading.h"
#include "PlanStore.h"

#include <QAbstractTableModel>
#include <QTimer>

#include <memory>

/// Rows of a list of the stored plans: some hundred that follow each other, because views use memory for every row.
/// `goTo` and others choose which ones. If others cannot be read, `PlanEvents` reports it, and the rows stay.
class PlanTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// Roles of cells, beside the usual ones.
    enum Role {
        SideRole = Qt::UserRole, ///< the code of the side, in its column
        ProgressRole             ///< `PlanColumns::shares`, in the column of the progress
    };

    explicit PlanTableModel(QObject* parent = nullptr);

    /// Reads another list from its start. Keeps the list and the rows if it fails.
    Status show(const PlanList& list);
    const PlanList& list() const { return m_list; }
    /// Reads the rows again and changes only those that differ. Keeps them if it fails, also because the file is gone.
    Status refresh();
    /// The number of plans in the list.
    int planCount() const { return m_count; }
    /// Whether there may be more plans, which are being counted.
    bool isCounting() const { return m_isCounting; }

    /// The position of the first row in the list; exact if the list has not changed since it was counted.
    int firstPosition() const { return m_first; }
    /// Whether there are plans before the first row, and after the last one.
    bool hasAbove() const { return m_hasAbove; }
    bool hasBelow() const { return m_hasBelow; }
    /// Appends or prepends rows, and removes some at the other end if there are too many. Returns how far the other
    /// rows have moved down.
    int extendDown();
    int extendUp();
    /// Replaces the rows by those around a position, or by the last ones.
    void goTo(int position);
    void goToEnd();

    /// The plan of a row; a default plan (empty id) if there is no such row.
    StoredPlan plan(int row) const { return m_rows.value(row).listed.plan; }
    QStringList ids() const;
    /// The plan with an id, also if it is no row; a default plan if it is not in the list.
    Result<StoredPlan> listed(const QString& planId) const;
    /// Plans that were listed, in the order of the list.
    QVector<ListedPlan> listed(const QStringList& planIds) const;
    /// The ids of the plans of a part of the list, in its order.
    QStringList idsOf(const PlanSlice& slice) const;
    /// The row of a plan; -1 if there is none.
    int rowOf(const QString& planId) const;
    /// Like `rowOf`; if there is none, replaces the rows by those around the plan, unless it is not in the list.
    Result<int> reveal(const QString& planId);

    /// The texts of a row's columns.
    QStringList texts(int row) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

Q_SIGNALS:
    /// All plans have been counted.
    void counted();

private:
    /// A plan with the texts of its columns, which are made when they are shown.
    struct Row {
        ListedPlan listed;
        mutable QStringList texts;
    };
    using Plans = QVector<ListedPlan>;

    Result<Plans> read(const PlanSlice& slice, bool& hasMore) const;
    void noteDay();
    void note(const PlanLook& look);
    void startCounting();
    void take(int plans, const QVector<PlanLandmark>& landmarks);
    int positionOf(const PlanPlace& place) const;
    PlanPlace placeOf(int row) const;
    void replace(const Plans& plans, int first, bool hasAbove, bool hasBelow);
    void merge(const Plans& plans);
    void removeOthers(const Plans& plans);
    void remove(int first, int count);
    void insert(int row, const Plans& plans);

    PlanList m_list;
    QVector<Row> m_rows;
    int m_first = 0;
    bool m_hasAbove = false;
    bool m_hasBelow = false;
    int m_count = 0;
    bool m_isCounting = false;
    QVector<PlanLandmark> m_landmarks; ///< of the last count; empty if the list was counted at once
    QTimer m_untilPainted;
    std::unique_ptr<PlanCounter> m_counter; ///< null until there are many plans
};
