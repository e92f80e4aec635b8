#include "Popups.h"

#include <QApplication>
#include <QGuiApplication>
#include <QRect>
#include <QScreen>

namespace {

QRect screenOf(const QWidget* widget)
{
    const QScreen* screen = QGuiApplication::screenAt(widget->mapToGlobal(widget->rect().center()));
    if (!screen)
        screen = widget->screen();
    return screen ? screen->availableGeometry() : QRect();
}

} // namespace

QPoint popupPlace(const QWidget* field, const QSize& popup)
{
    const QPoint below = field->mapToGlobal(QPoint(0, field->height()));
    const QPoint above = field->mapToGlobal(QPoint(0, -popup.height()));
    const QRect screen = screenOf(field);
    const bool fitsBelow = below.y() + popup.height() <= screen.bottom() + 1;
    return keptOnScreen(fitsBelow || above.y() < screen.top() ? below : above, popup, field);
}

QPoint keptOnScreen(const QPoint& wanted, const QSize& size, const QWidget* near)
{
    const QRect screen = screenOf(near);
    if (screen.isNull())
        return wanted;
    const int right = screen.right() + 1 - size.width();
    const int bottom = screen.bottom() + 1 - size.height();
    return { qMax(screen.left(), qMin(wanted.x(), right)), qMax(screen.top(), qMin(wanted.y(), bottom)) };
}

// A popup passes its keys on to its window, in which the widget with the focus counts.
QShortcut* newControlShortcut(Qt::Key key, QWidget* window)
{
    auto* const shortcut = new QShortcut(QKeySequence(static_cast<int>(Qt::CTRL) + key), window);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    return shortcut;
}

QSize EvenRowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem row(option);
    initStyleOption(&row, index);
    row.text += QStringLiteral("国");
    const QStyle* style = row.widget ? row.widget->style() : QApplication::style();
    return style->sizeFromContents(QStyle::CT_ItemViewItem, &row, QSize(), row.widget);
}
