#include "PlainText.h"

#include <QLabel>
#include <QTextDocument>

QLabel* PlainText::newLabel(const QString& text, QWidget* parent)
{
    auto* const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    return label;
}

// Tool tips have no text format, and only look like HTML or not.
QString PlainText::toolTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}
