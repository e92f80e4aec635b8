#include "FittedFont.h"

#include <QFontInfo>
#include <QFontMetrics>

namespace {

constexpr int smallestText = 9;

} // namespace

QFont fittedFont(QFont font, const QString& text, int room)
{
    int size = QFontInfo(font).pixelSize();
    while (size > smallestText && QFontMetrics(font).horizontalAdvance(text) > room)
        font.setPixelSize(--size);
    return font;
}
