#pragma once

#include "TableReader.h"

namespace JsonTable {

/// See `TableReader::read`. Reads the device twice from its start: for the keys and for the rows.
Status read(QIODevice& device, qint64& line, const TableReader::Take& take, const TableReader::Progress& progress);

/// Whether the start of a file is that of a JSON array.
bool isStart(const QByteArray& bytes);

} // namespace JsonTable
