#pragma once

#include "Status.h"

#include <QByteArray>

/// Checks of the text of a strategy file before it is parsed.
namespace StrategyMarkup {

/// Fails, with the line, if an element has too many attributes. `text` is UTF-8.
Status check(const QByteArray& text);

} // namespace StrategyMarkup
