#pragma once

#include "store/PlanStore.h"

#include <QAbstractTableModel>
#include <QCache>

/// The stored plans, newest first, one row each. Reads pages of the store when their rows are shown and keeps the last
/// few; nothing else is read but the number of plans.
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

    /// Reads the number of plans afresh and forgets every page.
    void refresh();
    /// The plan of a row; a default plan (empty id) when the row is none.
    StoredPlan plan(int row) const;
    /// The row of a plan; -1 when no stored plan has the id.
    int rowOf(const QString& planId) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    /// A plan with the texts of its columns.
    struct Row {
        StoredPlan plan;
        QStringList texts;
    };
    using Page = QVector<Row>;

    static Row makeRow(const StoredPlan& plan);
    const Page& page(int number) const;

    int m_count = 0;
    mutable QCache<int, Page> m_pages;
};
