#pragma once

#include "Status.h"

#include <functional>
#include <string_view>
#include <vector>

class QIODevice;

/// One row of a table. Its cells are UTF-8 and valid while it is taken.
struct TableRow {
    /// The number of its first line; in a workbook the row, in JSON the number of the object. The first is 1.
    qint64 line = 0;
    std::vector<std::string_view> cells;
};

/// Reads tables from files that anybody may have written. Time and memory are bounded by the limits below, not by what
/// a file says about itself. The memory for a CSV or JSON file does not grow with its number of rows.
namespace TableReader {

constexpr qint64 LongestRow = 1 << 20;        ///< bytes
constexpr int MostCells = 1000;               ///< of a row
constexpr qint64 LargestFile = 64 << 20;      ///< bytes of a workbook, which is compressed
constexpr qint64 LargestWorkbook = 256 << 20; ///< bytes of a workbook's contents

/// A failure ends the reading.
using Take = std::function<Status(const TableRow& row)>;
/// Called from time to time with the number of bytes that were read, which for JSON is half of those of two readings.
/// Returning false ends the reading.
using Progress = std::function<bool(qint64 bytes)>;

/// Reads a table row by row: a workbook's first sheet (XLSX), a JSON array of objects, whose keys are the first row, or
/// CSV as of RFC 4180 with commas, tabs or semicolons, in UTF-8 or GB18030. The contents show which it is. Rows without
/// any text are left out. `line` is that of the last row, or of what is wrong; 0 for a JSON array without objects,
/// which has no keys. JSON needs a device with random access.
Status read(QIODevice& device, qint64& line, const Take& take, const Progress& progress = {});

/// The text of a number in a table: fifteen digits, as spreadsheets show them, without an exponent.
QString numberText(double number);

} // namespace TableReader
