#pragma once

#include <QString>

/// True when a formula contains a character or sequence that must not be in it; then `found` is the first of them,
/// otherwise `found` is left as it is.
bool isContainsSpecialChar(const QString& text, QString& found);
