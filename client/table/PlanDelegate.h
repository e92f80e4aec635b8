#pragma once

#include <QStyledItemDelegate>

class PlanTable;

/// Paints the cells of the plan table: the side in the market's colours, the progress with a bar.
class PlanDelegate : public QStyledItemDelegate {
public:
    explicit PlanDelegate(PlanTable* table);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    const PlanTable& m_table;
};
