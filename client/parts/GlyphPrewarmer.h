#pragma once

#include <QBitArray>
#include <QObject>

class QTimer;
class QWidget;

/// Draws glyphs of a widget's font in advance, a few at a time while the program is idle: the first rendering of a
/// glyph is far slower than later ones.
class GlyphPrewarmer : public QObject {
public:
    explicit GlyphPrewarmer(QWidget* widget);

    /// Adds letters by their character codes; those that were drawn before are ignored.
    void draw(const QBitArray& letters);

private:
    void drawSome();

    QWidget* m_widget;
    QBitArray m_wanted;
    QBitArray m_drawn;
    int m_next = 0;
    QTimer* m_idle;
};
