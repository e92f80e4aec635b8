#include "SenderGuard.h"

#include <QVariant>

namespace {

const char GuardedProperty[] = "isHandlingSignal";

} // namespace

SenderGuard::SenderGuard(QWidget* sender)
    : m_sender(sender)
    , m_wasGuarded(sender->property(GuardedProperty).toBool())
{
    sender->setProperty(GuardedProperty, true);
}

// Guards are nested if a handler makes the widget emit again. Only the outermost guard schedules the deletion: the
// event loop of an inner handler would delete the widget before the outer signal returns.
SenderGuard::~SenderGuard()
{
    if (!m_sender || m_wasGuarded)
        return;
    m_sender->setProperty(GuardedProperty, false);
    if (!m_sender->parent())
        m_sender->deleteLater();
}

void SenderGuard::release(QWidget* sender)
{
    if (sender->property(GuardedProperty).toBool())
        sender->setParent(nullptr);
}
