#include "OrloElidedLabel.h"
#include "OrloHintLabel.h"
#include "OrloSubTitleWidget.h"
#include "PlainText.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QStyle>

class OrloSubTitleWidget::Private {
public:
    explicit Private(OrloSubTitleWidget* q)
        : mark(new QFrame(q))
        , title(new QLabel(q))
    {
        mark->setObjectName(QStringLiteral("titleMark"));
        mark->setFixedWidth(3);
        mark->setFrameShape(QFrame::VLine);
        title->setObjectName(QStringLiteral("titleText"));
        title->setTextFormat(Qt::PlainText);
        q->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        auto* row = new QHBoxLayout(q);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(6);
        row->addWidget(mark);
        row->addWidget(title);
    }

    QFrame* mark;
    QLabel* title;
};

OrloSubTitleWidget::OrloSubTitleWidget(QWidget* parent)
    : QWidget(parent)
    , d(std::make_unique<Private>(this))
{
}

OrloSubTitleWidget::~OrloSubTitleWidget() = default;

void OrloSubTitleWidget::SetTitle(const QString& title)
{
    d->title->setText(title);
    setAccessibleName(title);
}

QString OrloSubTitleWidget::Title() const
{
    return d->title->text();
}

OrloHintLabel::OrloHintLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

OrloHintLabel::~OrloHintLabel() = default;

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
    const QString tip = shown == text() ? QString() : PlainText::toolTip(text());
    if (toolTip() != tip)
        setToolTip(tip);
}
