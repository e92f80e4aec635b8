#include "NoticeLine.h"

#include "OrloPushButton.h"
#include "PlainText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVariant>

NoticeLine::NoticeLine(const QString& name, QWidget* parent)
    : QWidget(parent)
    , m_text(PlainText::newLabel(QString(), this))
    , m_button(new OrloPushButton(this))
{
    setObjectName(name);
    m_button->setStyleType(QStringLiteral("text"));
    m_button->setAutoDefault(false);
    connect(m_button, &QPushButton::clicked, this, &NoticeLine::wanted);
    m_text->setProperty("faulty", true);
    m_text->setWordWrap(true);
    auto* const row = new QHBoxLayout(this);
    row->addWidget(m_text, 1);
    row->addWidget(m_button);
    hide();
}

void NoticeLine::setButton(const QString& name, const QString& text)
{
    m_button->setObjectName(name);
    m_button->setText(text);
}

void NoticeLine::showText(const QString& text)
{
    m_text->setText(text);
    show();
}
