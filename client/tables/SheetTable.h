#pragma once

#include "TableReader.h"

#include <QByteArray>

namespace SheetTable {

/// See `TableReader::read`. `workbook`: the bytes of an XLSX file.
Status read(
    const QByteArray& workbook, qint64& line, const TableReader::Take& take, const TableReader::Progress& progress);

} // namespace SheetTable
