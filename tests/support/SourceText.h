#pragma once

#include <QString>
#include <QStringList>

/// The texts of sources and documents, for tests that compare them.

/// The text of a file, which must exist.
QString textOf(const QString& fileName);
/// The first capture group of every match; `^` and `$` match at each line.
QStringList allMatches(const QString& text, const QString& pattern);
