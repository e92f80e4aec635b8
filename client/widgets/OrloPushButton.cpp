#include "OrloPushButton.h"

#include <QStyle>

const QString OrloPushButton::BtnStyleType::Normal = QStringLiteral("normal");
const QString OrloPushButton::BtnStyleType::Highlight = QStringLiteral("highlight");
const QString OrloPushButton::BtnStyleType::Text = QStringLiteral("text");

class OrloPushButton::Private {
public:
    QString styleType = BtnStyleType::Normal;
};

OrloPushButton::OrloPushButton(QWidget* parent)
    : QPushButton(parent)
    , d(std::make_unique<Private>())
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
    update();
}

QString OrloPushButton::styleType() const
{
    return d->styleType;
}
