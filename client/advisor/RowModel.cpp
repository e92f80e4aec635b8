#include "RowModel.h"

#include "PlainText.h"

#include <QBrush>

using Mark = AdvisorRow::Mark;

RowModel::RowModel(const AdvisorColumns& columns, QObject* parent)
    : QAbstractTableModel(parent)
    , m_columns(columns)
{
}

void RowModel::setRows(const AdvisorRows& rows)
{
    if (rows != m_rows)
        replace(rows);
    m_make = nullptr;
}

void RowModel::setRows(int count, const std::function<AdvisorRow(int row)>& make)
{
    m_make = make;
    replace(AdvisorRows(count));
}

const AdvisorRows& RowModel::rows() const
{
    for (int i = 0; i < m_rows.size(); ++i)
        row(i);
    return m_rows;
}

const AdvisorRow& RowModel::row(int index) const
{
    if (m_make && m_rows.at(index).cells.isEmpty())
        m_rows[index] = m_make(index);
    return m_rows.at(index);
}

void RowModel::replace(const AdvisorRows& rows)
{
    if (rows.size() != m_rows.size()) {
        beginResetModel();
        m_rows = rows;
        endResetModel();
        return;
    }
    m_rows = rows;
    if (rows.isEmpty())
        return;
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

QColor RowModel::color(Mark mark) const
{
    return m_colors.at(static_cast<std::size_t>(mark));
}

void RowModel::setColor(Mark mark, const QColor& color)
{
    m_colors.at(static_cast<std::size_t>(mark)) = color;
}

int RowModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int RowModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant RowModel::data(const QModelIndex& index, int role) const
{
    const AdvisorRow& shown = row(index.row());
    const bool isShaded = shown.mark == Mark::Shaded;
    if (role == Qt::DisplayRole)
        return shown.cells.value(index.column());
    if (role == Qt::ToolTipRole)
        return PlainText::toolTip(shown.hints.value(index.column(), shown.cells.value(index.column())));
    if (role == Qt::TextAlignmentRole && m_columns.at(index.column()).isNumber)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::BackgroundRole && isShaded && color(shown.mark).isValid())
        return QBrush(color(shown.mark));
    if (role == Qt::ForegroundRole && !isShaded && color(shown.mark).isValid())
        return QBrush(color(shown.mark));
    return {};
}

QVariant RowModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section >= m_columns.size())
        return {};
    if (role == Qt::DisplayRole)
        return m_columns.at(section).heading;
    if (role == Qt::TextAlignmentRole && m_columns.at(section).isNumber)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}
