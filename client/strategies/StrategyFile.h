#pragma once

#include "Status.h"
#include "StrategyDefinition.h"
#include <QIODevice>
#include <QString>

/// Reads strategies from FIXatdl 1.1 files: the subset that docs/strategy-files.md describes. A file is taken whole or
/// not at all: anything else fails with the line of the element (where its start tag ends) and is never skipped.
namespace StrategyFile {

/// Largest size of a file in bytes.
constexpr qint64 MAX_SIZE = 1048576;

/// Reads the file of that path; resource paths are welcome.
Result<QList<StrategyDefinition>> read(const QString& path);

/// Reads an open device; `name` stands for the file in messages.
Result<QList<StrategyDefinition>> read(QIODevice& device, const QString& name);

} // namespace StrategyFile
