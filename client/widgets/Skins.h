#pragma once

#include <QString>
#include <QStringList>

/// Names of the skins, the first being the usual one.
QStringList skinNames();

/// Style sheet of a skin; empty and logged as a warning for a name that is none.
QString skinSheet(const QString& name);
