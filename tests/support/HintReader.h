#pragma once

#include <QString>

class QWidget;

/// The notice that is on the screen at a field; empty when there is none.
QString hintAt(const QWidget* field);
