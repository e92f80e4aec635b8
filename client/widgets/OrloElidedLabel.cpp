#include "OrloElidedLabel.h"

#include <QPainter>
#include <QStyle>

OrloElidedLabel::OrloElidedLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

OrloElidedLabel::~OrloElidedLabel() = default;

QSize OrloElidedLabel::minimumSizeHint() const
{
    const int ellipsis = fontMetrics().horizontalAdvance(QStringLiteral("…"));
    return { ellipsis + 2 * (margin() + frameWidth()), QLabel::minimumSizeHint().height() };
}

void OrloElidedLabel::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    drawFrame(&painter);
    const QRect room = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, room.width());
    const Qt::Alignment align = QStyle::visualAlignment(layoutDirection(), alignment());
    style()->drawItemText(&painter, room, int(align), palette(), isEnabled(), shown, foregroundRole());
    const QString tip = shown == text() ? QString() : text();
    if (toolTip() != tip)
        setToolTip(tip);
}
