#pragma once

#include <QFont>
#include <QString>
#include <QStringList>

/// Names of the skins, the first being the usual one.
QStringList skinNames();

/// Style sheet of a skin; empty and logged as a warning for a name that is none.
QString skinSheet(const QString& name);

/// The font, or the largest smaller one in which a text is no wider than `room` pixels. It never gets too small to be
/// read: a text that does not fit even then stays too wide.
QFont fittedFont(QFont font, const QString& text, int room);
