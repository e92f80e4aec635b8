#include "OrloPushButton.h"

#include "Appearance.h"

#include <QApplication>
#include <QEvent>
#include <QScopedValueRollback>
#include <QStyle>

const QString OrloPushButton::BtnStyleType::Normal = QStringLiteral("normal");
const QString OrloPushButton::BtnStyleType::Highlight = QStringLiteral("highlight");
const QString OrloPushButton::BtnStyleType::Text = QStringLiteral("text");

namespace {

constexpr int TextMargin = 4;

} // namespace

class OrloPushButton::Private : public QObject {
public:
    explicit Private(OrloPushButton* button)
        : q(button)
    {
        q->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override;
    void fitText();

    QString styleType = BtnStyleType::Normal;

private:
    OrloPushButton* q;
    bool m_fitting = false;
};

bool OrloPushButton::Private::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::Resize || type == QEvent::Show || type == QEvent::FontChange || type == QEvent::StyleChange)
        fitText();
    return QObject::eventFilter(watched, event);
}

/// Forms fix the width of a text button to that of its text in the default font, so a larger font is reduced to fit.
void OrloPushButton::Private::fitText()
{
    if (m_fitting || styleType != BtnStyleType::Text)
        return;
    const QScopedValueRollback<bool> own(m_fitting, true);
    const QFont usual = q->parentWidget() ? q->parentWidget()->font() : QApplication::font(q);
    const QFont font = fittedFont(usual, q->text(), q->maximumWidth() - TextMargin);
    if (font != q->font())
        q->setFont(font);
}

OrloPushButton::OrloPushButton(QWidget* parent)
    : QPushButton(parent)
    , d(std::make_unique<Private>(this))
{
}

OrloPushButton::~OrloPushButton() = default;

void OrloPushButton::setStyleType(const QString& styleType)
{
    if (d->styleType == styleType)
        return;
    d->styleType = styleType;
    setFlat(styleType == BtnStyleType::Text);
    // A style sheet chooses its rules when it polishes a widget, not when a property changes.
    style()->unpolish(this);
    style()->polish(this);
    d->fitText();
    update();
}

QString OrloPushButton::styleType() const
{
    return d->styleType;
}
