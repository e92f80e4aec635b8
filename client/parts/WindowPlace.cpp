#include "WindowPlace.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QWidget>

namespace {

QSettings settings()
{
    return QSettings(QStringLiteral("plandesk"), QStringLiteral("plandesk"));
}

} // namespace

WindowPlace::WindowPlace(QWidget* window, const QString& name)
    : QObject(window)
    , m_window(window)
    , m_key(QStringLiteral("windows/") + name)
{
    // Also moves a window whose screen is gone.
    window->restoreGeometry(settings().value(m_key).toByteArray());
    window->installEventFilter(this);
}

bool WindowPlace::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show && !event->spontaneous())
        keepOnScreen(m_window);
    if (event->type() == QEvent::Hide && !event->spontaneous())
        settings().setValue(m_key, m_window->saveGeometry());
    return QObject::eventFilter(watched, event);
}

void keepOnScreen(QWidget* window)
{
    const QScreen* screen = QGuiApplication::screenAt(window->geometry().center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const QRect room = screen->availableGeometry();
    const QSize frame = window->frameGeometry().size() - window->size();
    window->resize(window->size().boundedTo(room.size() - frame));
    if (!window->testAttribute(Qt::WA_Moved))
        return;
    const QRect now = window->frameGeometry();
    const QPoint most = room.bottomRight() - QPoint(now.width(), now.height()) + QPoint(1, 1);
    window->move(qMax(room.left(), qMin(now.x(), most.x())), qMax(room.top(), qMin(now.y(), most.y())));
}
