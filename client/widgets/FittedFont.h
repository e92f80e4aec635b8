#pragma once

#include <QFont>
#include <QString>

/// The font, or the largest smaller one in which a text is no wider than `room` pixels. It never gets too small to be
/// read: a text that does not fit even then stays too wide.
QFont fittedFont(QFont font, const QString& text, int room);
