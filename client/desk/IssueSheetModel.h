#pragma once

#include "IssueSheetRows.h"

#include <QAbstractTableModel>
#include <QColor>

/// The plans of a day in the issue sheet: what would go out for each, whether it is chosen, and what became of it.
class IssueSheetModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Plan, Account, Security, Side, Price, Quantity, Amount, ResultColumn, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    /// Shows plans. Returns the ones before, which another thread can destroy.
    IssueSheetRows setRows(IssueSheetRows rows);
    const IssueSheetRows& rows() const { return m_rows; }
    /// Shows the same plans with other contents; otherwise as above.
    IssueSheetRows update(IssueSheetRows rows);
    void choose(bool all);
    void setColors(const QColor& buy, const QColor& sell);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

Q_SIGNALS:
    void chosenChanged();

private:
    QString textOf(const IssueRow& row, int column) const;
    QString resultOf(const IssueRow& row) const;
    void noteChange();

    IssueSheetRows m_rows;
    QColor m_buyColor;
    QColor m_sellColor;
};
