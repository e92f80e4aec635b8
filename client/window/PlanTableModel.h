#pragma once

#include "PlanCounter.h"
#include "PlanStore.h"

#include <QAbstractTableModel>
#include <QCache>
#include <QTimer>

#include <memory>

/// The stored plans, newest first, one row each. Reads pages of the store when their rows are shown, and keeps the last
/// few; otherwise reads only the number of plans, a large one on another thread. Views use memory for every row, so
/// they get the newest rows first and more when the last row becomes visible. `PlanEvents` reports rows that cannot be
/// read; they stay empty until the next `refresh`.
class PlanTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column {
        Id,
        PlanType,
        InstructionType,
        SecurityColumn,
        Side,
        Target,
        PriceMode,
        Period,
        Creation,
        ColumnCount
    };

    explicit PlanTableModel(QObject* parent = nullptr);

    /// Reads the number of plans again and drops all pages. Keeps the rows if it fails, also because the file is gone.
    Status refresh();
    /// The number of stored plans; `rowCount` of them are rows so far.
    int planCount() const { return m_count; }
    /// Whether there may be more plans, which are being counted.
    bool isCounting() const { return m_isCounting; }
    /// The plan of a row; a default plan (empty id) if there is no such row or it cannot be read.
    StoredPlan plan(int row) const;
    /// The row of a plan, which is loaded if needed; -1 if no stored plan has the id or it cannot be read. `likelyRow`:
    /// where it is looked for first.
    int reveal(const QString& planId, int likelyRow = -1);

    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

Q_SIGNALS:
    /// All plans have been counted.
    void counted();

private:
    /// A plan with the texts of its columns.
    struct Row {
        StoredPlan plan;
        QStringList texts;
    };
    using Page = QVector<Row>;

    static Row makeRow(const StoredPlan& plan);
    const Page& page(int number) const;
    int rowOf(const QString& planId) const;
    void growTo(int rows);
    void countAll();

    int m_count = 0; ///< stored plans
    int m_rows = 0;  ///< those that are rows so far
    bool m_isCounting = false;
    QTimer m_untilPainted;
    std::unique_ptr<PlanCounter> m_counter; ///< null until there are many plans
    mutable QCache<int, Page> m_pages;
};
