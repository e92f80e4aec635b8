#pragma once

#include "AdvisorRow.h"

#include <QAbstractTableModel>
#include <QColor>

#include <array>
#include <functional>

/// Rows of texts, emphasised by colours.
class RowModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// Numbers are right-aligned.
    RowModel(const AdvisorColumns& columns, QObject* parent);

    /// Replaces the rows. If their number stays the same, the selected row stays selected.
    void setRows(const AdvisorRows& rows);
    /// The same for rows that are made when they are shown, because there are many.
    void setRows(int count, const std::function<AdvisorRow(int row)>& make);
    /// All rows.
    const AdvisorRows& rows() const;
    const AdvisorColumns& columns() const { return m_columns; }
    /// The colour of a mark: of the ground for shaded rows, of the text for all others.
    QColor color(AdvisorRow::Mark mark) const;
    void setColor(AdvisorRow::Mark mark, const QColor& color);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void replace(const AdvisorRows& rows);
    const AdvisorRow& row(int index) const;

    const AdvisorColumns m_columns;
    mutable AdvisorRows m_rows; ///< without cells until they are made
    std::function<AdvisorRow(int row)> m_make;
    std::array<QColor, 6> m_colors;
};
