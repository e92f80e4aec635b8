#pragma once

#include <QPoint>
#include <QWidget>

/// Small helpers of the client's widget library.
class OrloUtils {
public:
    OrloUtils() = delete;

    /// Where to place a tool window: global position of its top left corner. `place` 0 is below its parent, 1 beside
    /// it, 2 centred over the parent's window, always wholly on the screen.
    static QPoint GetWidgetPos(QWidget* widget, int place);
};
