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
    const QByteArray bytes = device.read(TableReader::LargestFile + 1);
    if (bytes.size() > TableReader::LargestFile)
        return { Error::FileTooLarge, { QString::number(TableReader::LargestFile) } };
    return bytes;
}

bool hasText(const TableRow& row)
{
    return std::any_of(row.cells.cbegin(), row.cells.cend(), [](std::string_view cell) { return !cell.empty(); });
}

} // namespace

Status TableReader::read(QIODevice& device, qint64& line, const Take& take, const Progress& progress)
{
    constexpr qint64 StartSize = 65536;
    const Take takeText = [&](const TableRow& row) { return hasText(row) ? take(row) : Status(); };
    line = 1;
    const QByteArray start = device.peek(StartSize);
    if (JsonTable::isStart(start))
        return JsonTable::read(device, line, takeText, progress);
    if (!start.startsWith("PK\x03\x04"))
        return CsvTable::read(device, line, takeText, progress);
    const Result<QByteArray> bytes = wholeOf(device);
    return bytes ? SheetTable::read(*bytes, line, takeText, progress) : bytes.status();
}

QString TableReader::numberText(double number)
{
    const double rounded = QString::number(number, 'g', 15).toDouble();
    return QString::number(rounded, 'f', QLocale::FloatingPointShortest);
}
