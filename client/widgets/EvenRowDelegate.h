#pragma once

#include <QStyledItemDelegate>

/// Gives every row of a list the height of a Chinese text, so that a list of uniform rows suits all of them.
class EvenRowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};
