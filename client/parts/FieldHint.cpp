#include "FieldHint.h"

#include "Popups.h"

#include <QEvent>

namespace {

constexpr int ShownMilliseconds = 8000;
constexpr int WidestHint = 320;

} // namespace

FieldHint::FieldHint(QWidget* field)
    : QLabel(field, Qt::ToolTip | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("fieldHint"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setFrameShape(QFrame::StyledPanel);
    setMargin(4);
    setAutoFillBackground(true);
    m_timer.setSingleShot(true);
    m_timer.setInterval(ShownMilliseconds);
    connect(&m_timer, &QTimer::timeout, this, &QWidget::hide);
    field->installEventFilter(this);
    field->window()->installEventFilter(this);
}

FieldHint* FieldHint::of(const QWidget* field)
{
    return field->findChild<FieldHint*>(QString(), Qt::FindDirectChildrenOnly);
}

void FieldHint::showAt(QWidget* field, const QString& text, Duration duration)
{
    if (!field->isVisible())
        return;
    FieldHint* hint = of(field);
    if (!hint)
        hint = new FieldHint(field);
    hint->m_click = nullptr;
    hint->unsetCursor();
    hint->setText(text);
    hint->setAccessibleName(text);
    hint->place();
    hint->show();
    if (duration == ForSeconds)
        hint->m_timer.start();
    else
        hint->m_timer.stop();
}

void FieldHint::hideAt(QWidget* field)
{
    if (FieldHint* hint = of(field))
        hint->hide();
}

void FieldHint::setClick(QWidget* field, const std::function<void()>& action)
{
    FieldHint* const hint = of(field);
    if (!hint || !hint->isVisible())
        return;
    hint->m_click = action;
    hint->setCursor(Qt::PointingHandCursor);
}

void FieldHint::mouseReleaseEvent(QMouseEvent* event)
{
    QLabel::mouseReleaseEvent(event);
    const std::function<void()> action = m_click;
    hide();
    if (action)
        action();
}

void FieldHint::place()
{
    ensurePolished();
    const QSize oneLine = fontMetrics().size(Qt::TextSingleLine, text());
    const int width = qMin(WidestHint, oneLine.width() + 2 * margin() + 2 * frameWidth() + 12);
    resize(width, heightForWidth(width));
    move(popupPlace(parentWidget(), size()));
}

bool FieldHint::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Hide:
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowDeactivate:
        hide();
        break;
    default:
        break;
    }
    return QLabel::eventFilter(watched, event);
}
