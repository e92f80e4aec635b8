#include "InputMeaning.h"

#include "FieldHint.h"

#include <QEvent>

namespace {

constexpr int Gap = 6;

} // namespace

InputMeaning::InputMeaning(QLineEdit* line)
    : QLabel(line)
    , m_line(line)
{
    setObjectName(QStringLiteral("inputMeaning"));
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    // Without a skin.
    setForegroundRole(QPalette::PlaceholderText);
    line->installEventFilter(this);
}

void InputMeaning::show(QLineEdit* line, QWidget* field, const QString& text)
{
    auto* meaning = line->findChild<InputMeaning*>(QString(), Qt::FindDirectChildrenOnly);
    if (!meaning && text.isEmpty())
        return;
    if (!meaning)
        meaning = new InputMeaning(line);
    meaning->setText(text);
    meaning->ensurePolished();
    const bool isInside = !text.isEmpty() && meaning->fits();
    // The digits never run under the label.
    line->setTextMargins(0, 0, isInside ? meaning->wantedWidth() : 0, 0);
    meaning->place();
    meaning->setVisible(isInside);
    if (!text.isEmpty() && !isInside)
        FieldHint::showAt(field, text, FieldHint::UntilHidden);
}

bool InputMeaning::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_line && event->type() == QEvent::Resize)
        place();
    return QLabel::eventFilter(watched, event);
}

void InputMeaning::place()
{
    setGeometry(m_line->width() - wantedWidth(), 0, wantedWidth() - Gap, m_line->height());
}

int InputMeaning::wantedWidth() const
{
    return fontMetrics().horizontalAdvance(text()) + 2 * Gap;
}

bool InputMeaning::fits() const
{
    return m_line->fontMetrics().horizontalAdvance(m_line->text()) + 2 * Gap + wantedWidth() <= m_line->width();
}
