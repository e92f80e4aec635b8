#pragma once

#include "StrategyDefinition.h"
#include <QIODevice>
#include <QList>
#include <QString>

/// Why a strategy file was refused.
struct StrategyFileError {
    QString file;
    qint64 line = 0; ///< line of the element concerned (where its start tag ends); 0 when the file could not be read
    QString reason;

    /// The whole message: "file 第3行：reason".
    QString text() const;
};

/// What a strategy file holds: its strategies, or the first error. A file is taken whole or not at all.
struct StrategyFileContent {
    QList<StrategyDefinition> strategies;
    StrategyFileError error;

    bool isValid() const { return error.reason.isEmpty(); }
};

/// Reads strategies from FIXatdl 1.1 files: the subset that docs/strategy-files.md describes. What lies outside is
/// refused with its line, never skipped.
namespace StrategyFile {

/// Largest size of a file in bytes.
constexpr qint64 MAX_SIZE = 1048576;
/// Most strategies of one file, parameters, controls and rules of one strategy, values of one parameter.
constexpr int MAX_COUNT = 100;
/// Deepest nesting of panels.
constexpr int MAX_PANEL_DEPTH = 8;
/// Longest text of an attribute or a description.
constexpr int MAX_TEXT = 1000;

/// Reads the file of that path; resource paths are welcome.
StrategyFileContent read(const QString& path);

/// Reads an open device; `name` stands for the file in messages.
StrategyFileContent read(QIODevice& device, const QString& name);

} // namespace StrategyFile
