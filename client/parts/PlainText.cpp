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

QString PlainText::halfWidth(QString text)
{
    constexpr ushort First = 0xFF01;
    constexpr ushort Last = 0xFF5E;
    constexpr ushort Distance = 0xFEE0;
    constexpr ushort Minus = 0x2212;
    for (QChar& c : text) {
        if (c.unicode() >= First && c.unicode() <= Last)
            c = QChar(c.unicode() - Distance);
        else if (c.unicode() == Minus)
            c = QLatin1Char('-');
    }
    return text;
}
