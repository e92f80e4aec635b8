#include "GlyphPrewarmer.h"

#include <QImage>
#include <QPainter>
#include <QTimer>
#include <QWidget>

namespace {

/// Takes about half a millisecond.
constexpr int LettersAtOnce = 8;
constexpr QSize CanvasSize(64, 32);

} // namespace

GlyphPrewarmer::GlyphPrewarmer(QWidget* widget)
    : QObject(widget)
    , m_widget(widget)
    , m_idle(new QTimer(this))
{
    connect(m_idle, &QTimer::timeout, this, &GlyphPrewarmer::drawSome);
}

void GlyphPrewarmer::draw(const QBitArray& letters)
{
    if (letters.isEmpty())
        return;
    m_drawn.resize(letters.size());
    m_wanted = letters & ~m_drawn;
    m_next = 0;
    if (m_wanted.count(true) > 0)
        m_idle->start(0);
}

void GlyphPrewarmer::drawSome()
{
    QString some;
    for (; m_next < m_wanted.size() && some.size() < LettersAtOnce; ++m_next) {
        if (!m_wanted.testBit(m_next))
            continue;
        m_drawn.setBit(m_next);
        some += QChar(m_next);
    }
    if (m_next >= m_wanted.size())
        m_idle->stop();
    QImage canvas(CanvasSize, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.setFont(m_widget->font());
    painter.drawText(canvas.rect(), Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, some);
}
