#include "OrloWidget.h"

#include "MessageBox.h"

#include <QCoreApplication>
#include <QPointer>

namespace {

QString boxText(const char* text)
{
    return QCoreApplication::translate("OrloWidget", text);
}

/// Runs a box, which may be deleted with its parent meanwhile, and returns whether it was accepted.
bool accepted(MessageBox* box)
{
    const QPointer<MessageBox> open(box);
    const int answer = box->exec();
    if (!open)
        return false;
    delete open.data();
    return answer == QDialog::Accepted;
}

void show(const MessageBox::Kind& kind, const QString& text, QWidget* parent)
{
    accepted(new MessageBox(kind, text, parent));
}

} // namespace

void OrloWidget::ShowWarningMsgBox(const QString& text, QWidget* parent)
{
    show({ QStringLiteral("msgBoxWarning"), boxText(QT_TRANSLATE_NOOP("OrloWidget", "警告")),
             QStyle::SP_MessageBoxWarning },
        text, parent);
}

void OrloWidget::ShowErrorMsgBox(const QString& text, QWidget* parent)
{
    show({ QStringLiteral("msgBoxError"), boxText(QT_TRANSLATE_NOOP("OrloWidget", "错误")),
             QStyle::SP_MessageBoxCritical },
        text, parent);
}

void OrloWidget::ShowTipMsgBox(const QString& text, QWidget* parent)
{
    show({ QStringLiteral("msgBoxTip"), boxText(QT_TRANSLATE_NOOP("OrloWidget", "提示")),
             QStyle::SP_MessageBoxInformation },
        text, parent);
}

int OrloWidget::ShowQuestionMsgBox(const QString& text, QWidget* parent, int defaultAnswer)
{
    const MessageBox::Kind kind{ QStringLiteral("msgBoxQuestion"), boxText(QT_TRANSLATE_NOOP("OrloWidget", "确认")),
        QStyle::SP_MessageBoxQuestion };
    auto* box = new MessageBox(kind, text, parent);
    box->addDecline(defaultAnswer == 0);
    return accepted(box) ? 1 : 0;
}
