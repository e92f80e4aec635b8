#include "OrloUtils.h"

#include "Popups.h"

namespace {

constexpr int BelowParent = 0;
constexpr int BesideParent = 1;

/// The size that a window will have when shown, even before it was first shown.
QSize shownSize(QWidget* widget)
{
    if (widget->testAttribute(Qt::WA_Resized))
        return widget->size();
    widget->ensurePolished();
    return widget->sizeHint().expandedTo(widget->minimumSize());
}

QPoint wantedPlace(const QWidget* parent, const QSize& size, int place)
{
    if (place == BelowParent)
        return parent->mapToGlobal(QPoint(0, parent->height()));
    if (place == BesideParent)
        return parent->mapToGlobal(QPoint(parent->width(), 0));
    const QWidget* window = parent->window();
    const QSize beyond = window->size() - size;
    return window->mapToGlobal(QPoint(beyond.width() / 2, beyond.height() / 2));
}

} // namespace

QPoint OrloUtils::GetWidgetPos(QWidget* widget, int place)
{
    if (!widget)
        return {};
    const QWidget* parent = widget->parentWidget();
    const QSize size = shownSize(widget);
    if (!parent)
        return keptOnScreen(widget->pos(), size, widget);
    return keptOnScreen(wantedPlace(parent, size, place), size, parent->window());
}
