#pragma once

#include "TableReader.h"

#include <QByteArray>

namespace JsonTable {

/// See `TableReader::read`.
Status read(const QByteArray& json, qint64& line, const TableReader::Take& take);

} // namespace JsonTable
