#include "PlanDelegate.h"

#include "Kelvo_Values.h"
#include "PlanTable.h"

#include <QPainter>

namespace {

constexpr int BarHeight = 3;
constexpr int BarMargin = 3;

} // namespace

PlanDelegate::PlanDelegate(PlanTable* table)
    : QStyledItemDelegate(table)
    , m_table(*table)
{
}

void PlanDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const QString side = index.data(PlanTableModel::SideRole).toString();
    if (!side.isEmpty())
        option->palette.setColor(
            QPalette::Text, side == Kelvo_Values::OrderSide::buy ? m_table.buyColor() : m_table.sellColor());
}

// What is filled is part of what is issued.
void PlanDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    const QVariant progress = index.data(PlanTableModel::ProgressRole);
    if (!progress.isValid())
        return;
    const QSizeF shares = progress.toSizeF();
    const QRect bar(option.rect.left() + BarMargin, option.rect.bottom() - BarHeight,
        option.rect.width() - 2 * BarMargin, BarHeight);
    const auto fill = [&](double share, const QColor& color) {
        painter->fillRect(QRect(bar.topLeft(), QSize(qRound(bar.width() * qBound(0.0, share, 1.0)), BarHeight)), color);
    };
    fill(1, m_table.groundColor());
    fill(shares.width(), m_table.issuedColor());
    fill(shares.height(), m_table.filledColor());
}
