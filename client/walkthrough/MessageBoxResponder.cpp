#include "MessageBoxResponder.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

namespace {

const QString BoxPrefix = QStringLiteral("msgBox");
const QString Agreement = QStringLiteral("agreementSign");

bool isAsked(const QDialog& dialog)
{
    return dialog.objectName().startsWith(BoxPrefix) || dialog.objectName() == Agreement;
}

QString textOf(const QDialog& box)
{
    const QWidget* const text = box.findChild<QWidget*>(QStringLiteral("msgBoxText"));
    if (const auto* const label = qobject_cast<const QLabel*>(text))
        return label->text();
    const auto* const scrolled = qobject_cast<const QPlainTextEdit*>(text);
    return scrolled ? scrolled->toPlainText() : box.windowTitle();
}

} // namespace

MessageBoxResponder::MessageBoxResponder()
{
    qApp->installEventFilter(this);
}

MessageBoxResponder::~MessageBoxResponder() = default;

void MessageBoxResponder::expect(const QString& name, bool accept)
{
    m_expected << Box{ name, QString(), accept };
}

QVector<MessageBoxResponder::Box> MessageBoxResponder::take()
{
    m_expected.clear();
    return std::exchange(m_seen, {});
}

bool MessageBoxResponder::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Show)
        return false;
    auto* const dialog = qobject_cast<QDialog*>(watched);
    if (!dialog || !isAsked(*dialog))
        return false;
    // Queued, with the box as context: the answer runs in the box's own event loop, which starts after this event and
    // ends before the responder is destroyed.
    QMetaObject::invokeMethod(
        dialog, [this, dialog] { answer(dialog); }, Qt::QueuedConnection);
    return false;
}

void MessageBoxResponder::answer(QDialog* box)
{
    Box seen{ box->objectName(), textOf(*box), false };
    if (!m_expected.isEmpty() && m_expected.constFirst().name == seen.name)
        seen.accepted = m_expected.takeFirst().accepted;
    if (m_onShown)
        m_onShown(box);
    m_seen << seen;
    auto* const confirm = box->findChild<QPushButton*>(QStringLiteral("btnConfirm"));
    if (seen.accepted && confirm)
        QTest::mouseClick(confirm, Qt::LeftButton);
    else
        QTest::keyClick(box, Qt::Key_Escape);
}
