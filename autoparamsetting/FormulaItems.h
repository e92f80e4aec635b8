#pragma once

#include <QStringList>

/// Puts formula names into the order in which they are offered. Names outside that order come first.
QStringList inPromptOrder(QStringList names);
