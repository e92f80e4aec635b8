#pragma once

#include "AdvisorRow.h"

#include <QAbstractTableModel>
#include <QColor>

#include <array>

/// Rows of texts, emphasised by colours.
class RowModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// Numbers are right-aligned.
    RowModel(const AdvisorColumns& columns, QObject* parent);

    /// Replaces the rows. If their number stays the same, the selected row stays selected.
    void setRows(const AdvisorRows& rows);
    const AdvisorRows& rows() const { return m_rows; }
    const AdvisorColumns& columns() const { return m_columns; }
    /// The colour of a mark: of the ground for shaded rows, of the text for all others.
    QColor color(AdvisorRow::Mark mark) const;
    void setColor(AdvisorRow::Mark mark, const QColor& color);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const AdvisorColumns m_columns;
    AdvisorRows m_rows;
    std::array<QColor, 6> m_colors;
};
