#pragma once

#include "TableReader.h"

namespace CsvTable {

/// See `TableReader::read`.
Status read(QIODevice& device, qint64& line, const TableReader::Take& take, const TableReader::Progress& progress);

} // namespace CsvTable
