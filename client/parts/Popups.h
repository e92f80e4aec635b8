#pragma once

#include <QPoint>
#include <QShortcut>
#include <QSize>
#include <QStyledItemDelegate>
#include <QWidget>

/// Global position of a field's popup: below the field, or above it if the screen ends there; always fully visible.
QPoint popupPlace(const QWidget* field, const QSize& popup);

/// Moves a rectangle of `size` at `wanted` fully onto the screen that contains `near`.
QPoint keptOnScreen(const QPoint& wanted, const QSize& size, const QWidget* near);

/// A shortcut of Ctrl and a key that works in a window and in the popups of its fields.
QShortcut* newControlShortcut(Qt::Key key, QWidget* window);

/// Gives every row of a list the height of a Chinese text, as uniform row heights require.
class EvenRowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};
