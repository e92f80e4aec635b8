#pragma once

#include <QPoint>
#include <QWidget>

/// Helper functions of the client's widget library.
class OrloUtils {
public:
    OrloUtils() = delete;

    /// Returns the global position for the top left corner of a tool window: 0 for `place` is below its parent, 1
    /// beside it, 2 centred over the parent's window. The tool window is always completely on the screen.
    static QPoint GetWidgetPos(QWidget* widget, int place);
};
