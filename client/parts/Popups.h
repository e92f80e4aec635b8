#pragma once

#include <QPoint>
#include <QSize>
#include <QStyledItemDelegate>
#include <QWidget>

/// Global position of a popup of a field: below it, above it where the screen ends, always wholly on the screen.
QPoint popupPlace(const QWidget* field, const QSize& popup);

/// Moves a rectangle of `size` that wants to be at `wanted` onto the screen on which `near` is.
QPoint keptOnScreen(const QPoint& wanted, const QSize& size, const QWidget* near);

/// Gives every row of a list the height of a Chinese text, so that a list of uniform rows suits all of them.
class EvenRowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};
