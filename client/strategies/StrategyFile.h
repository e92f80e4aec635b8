#pragma once

#include "Status.h"
#include "StrategyDefinition.h"

#include <QIODevice>
#include <QString>

/// Reads strategies from FIXatdl 1.1 files: the subset that docs/strategy-files.md describes. Nothing is skipped:
/// anything outside the subset fails with the line on which the element's start tag ends.
namespace StrategyFile {

/// Largest size of a file in bytes.
constexpr qint64 MaxSize = 1048576;

/// Reads a file; the path may be that of a resource.
Result<QList<StrategyDefinition>> read(const QString& path);

/// Reads an open device; `name` is the file's name in messages.
Result<QList<StrategyDefinition>> read(QIODevice& device, const QString& name);

} // namespace StrategyFile
