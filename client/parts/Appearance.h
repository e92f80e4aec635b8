#pragma once

#include <QFont>
#include <QString>
#include <QStringList>

/// Names of the skins; the first is the default.
QStringList skinNames();

/// Style sheet of a skin; empty, with a warning in the log, for an unknown name.
QString skinSheet(const QString& name);

/// The skin that the user chose last; the default without one.
QString rememberedSkin();
void rememberSkin(const QString& name);

/// The font, or the largest smaller one in which a text is no wider than `room` pixels. The font stays readable; a text
/// that does not fit even then stays too wide.
QFont fittedFont(QFont font, const QString& text, int room);
