#pragma once

#include <QWidget>

struct OrloUtils {
    static QPoint GetWidgetPos(const QWidget* widget, int) { return widget->pos(); }
};
