#pragma once

#include <QString>

/// Returns true if a formula contains a forbidden character or sequence and sets `found` to the first one. Otherwise
/// leaves `found` unchanged.
bool isContainsSpecialChar(const QString& text, QString& found);
