#pragma once

#include <QObject>

class QWidget;

/// Remembers the place and the size of a window under a name, in the user's settings.
class WindowPlace : public QObject {
    Q_OBJECT

public:
    /// Moves and resizes the window as it was left, as far as the present screens allow. Without a remembered place,
    /// the window keeps its size if it fits on the screen. The window owns this object.
    WindowPlace(QWidget* window, const QString& name);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* const m_window;
    const QString m_key;
};

/// Moves a window into its screen, and makes it smaller than the screen.
void keepOnScreen(QWidget* window);
