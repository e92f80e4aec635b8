#pragma once

#include "StrategyDefinition.h"
#include <QIODevice>
#include <QString>

/// Reads strategies from FIXatdl 1.1 files: the subset that docs/strategy-files.md describes. What lies outside is
/// refused with its line, never skipped.
namespace StrategyFile {

/// Largest size of a file in bytes.
constexpr qint64 MAX_SIZE = 1048576;

/// Reads the file of that path; resource paths are welcome.
StrategyFileContent read(const QString& path);

/// Reads an open device; `name` stands for the file in messages.
StrategyFileContent read(QIODevice& device, const QString& name);

} // namespace StrategyFile
