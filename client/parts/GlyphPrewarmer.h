#pragma once

#include <QBitArray>
#include <QObject>

class QTimer;
class QWidget;

/// Draws letters in a widget's font before they are shown, a few whenever there is nothing else to do: a letter that is
/// drawn for the first time takes many times longer than ever after.
class GlyphPrewarmer : public QObject {
public:
    explicit GlyphPrewarmer(QWidget* widget);

    /// Letters by their character codes; those that were drawn before are left out.
    void draw(const QBitArray& letters);

private:
    void drawSome();

    QWidget* m_widget;
    QBitArray m_wanted;
    QBitArray m_drawn;
    int m_next = 0;
    QTimer* m_idle;
};
