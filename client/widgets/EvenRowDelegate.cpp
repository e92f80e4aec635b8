#include "EvenRowDelegate.h"

#include <QApplication>

QSize EvenRowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem row(option);
    initStyleOption(&row, index);
    row.text += QStringLiteral("国");
    const QStyle* style = row.widget ? row.widget->style() : QApplication::style();
    return style->sizeFromContents(QStyle::CT_ItemViewItem, &row, QSize(), row.widget);
}
