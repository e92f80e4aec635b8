#include "MessageBox.h"

#include "OrloPushButton.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace {

constexpr int TextWidth = 320;
constexpr int IconSize = 32;
/// Longer texts, and texts with a word wider than the box, get scroll bars.
constexpr int LongestLabel = 400;
constexpr int LongestWord = 40;

bool hasLongWord(const QString& text)
{
    int length = 0;
    for (const QChar c : text) {
        length = c.isSpace() || c.script() == QChar::Script_Han ? 0 : length + 1;
        if (length > LongestWord)
            return true;
    }
    return false;
}

} // namespace

MessageBox::MessageBox(const Kind& kind, const QString& text, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint)
{
    setObjectName(kind.objectName);
    setWindowTitle(kind.title);
    setAccessibleDescription(text);
    // A box of another window would have to be closed first.
    setWindowModality(Qt::ApplicationModal);

    auto* icon = new QLabel(this);
    icon->setPixmap(style()->standardIcon(kind.icon, nullptr, this).pixmap(IconSize));
    auto* upper = new QHBoxLayout;
    upper->setSpacing(12);
    upper->addWidget(icon, 0, Qt::AlignTop);
    upper->addWidget(newText(text), 1);

    m_confirm = newButton(QStringLiteral("btnConfirm"), tr("确认"));
    connect(m_confirm, &QPushButton::clicked, this, &QDialog::accept);
    auto* buttons = new QHBoxLayout;
    buttons->setObjectName(QStringLiteral("buttons"));
    buttons->addStretch();
    buttons->addWidget(m_confirm);

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(20, 16, 20, 16);
    rows->setSpacing(16);
    rows->addLayout(upper, 1);
    rows->addLayout(buttons);
    m_confirm->setDefault(true);
    m_confirm->setFocus();
}

void MessageBox::addDecline(bool focused)
{
    QPushButton* decline = newButton(QStringLiteral("btnCancel"), tr("取消"));
    connect(decline, &QPushButton::clicked, this, &QDialog::reject);
    findChild<QHBoxLayout*>(QStringLiteral("buttons"))->addWidget(decline);
    if (!focused)
        return;
    decline->setDefault(true);
    decline->setFocus();
}

QWidget* MessageBox::newText(const QString& text)
{
    if (text.size() > LongestLabel || hasLongWord(text)) {
        auto* scrolled = new QPlainTextEdit(text, this);
        scrolled->setObjectName(QStringLiteral("msgBoxText"));
        scrolled->setAccessibleName(windowTitle());
        scrolled->setReadOnly(true);
        scrolled->setTabChangesFocus(true);
        scrolled->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        scrolled->setMinimumSize(TextWidth, 120);
        return scrolled;
    }
    auto* label = new QLabel(this);
    label->setObjectName(QStringLiteral("msgBoxText"));
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    label->setWordWrap(true);
    label->setMinimumWidth(TextWidth);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QPushButton* MessageBox::newButton(const QString& objectName, const QString& text)
{
    auto* button = new OrloPushButton(this);
    button->setObjectName(objectName);
    button->setText(text);
    button->setAutoDefault(true);
    button->setMinimumWidth(72);
    return button;
}
