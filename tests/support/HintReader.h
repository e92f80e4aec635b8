#pragma once

#include <QString>

class QWidget;

/// The hint shown at a field; empty if there is none.
QString hintAt(const QWidget* field);
