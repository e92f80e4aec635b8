#include "TableReader.h"

#include "CsvTable.h"
#include "JsonTable.h"
#include "SheetTable.h"

#include <QIODevice>
#include <QLocale>

#include <algorithm>

namespace {

Result<QByteArray> wholeOf(QIODevice& device)
{
    const QByteArray bytes = device.read(TableReader::LargestDocument + 1);
    if (bytes.size() > TableReader::LargestDocument)
        return { Error::FileTooLarge, { QString::number(TableReader::LargestDocument) } };
    return bytes;
}

bool hasText(const TableRow& row)
{
    return std::any_of(row.cells.cbegin(), row.cells.cend(), [](std::string_view cell) { return !cell.empty(); });
}

} // namespace

Status TableReader::read(QIODevice& device, qint64& line, const Take& take, const Progress& progress)
{
    const Take takeText = [&](const TableRow& row) { return hasText(row) ? take(row) : Status(); };
    line = 1;
    const QByteArray start = device.peek(4);
    if (!start.startsWith("PK\x03\x04") && !start.startsWith('['))
        return CsvTable::read(device, line, takeText, progress);
    const Result<QByteArray> bytes = wholeOf(device);
    if (!bytes)
        return bytes.status();
    return start.startsWith('[') ? JsonTable::read(*bytes, line, takeText)
                                 : SheetTable::read(*bytes, line, takeText, progress);
}

QString TableReader::numberText(double number)
{
    const double rounded = QString::number(number, 'g', 15).toDouble();
    return QString::number(rounded, 'f', QLocale::FloatingPointShortest);
}
