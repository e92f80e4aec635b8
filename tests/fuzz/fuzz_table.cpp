#include "FuzzTarget.h"
#include "ImportRow.h"
#include "TableReader.h"

#include <QBuffer>

#include <algorithm>

int LLVMFuzzerInitialize(int*, char***)
{
    return 0;
}

/// The input is a file to be imported: CSV, JSON or a workbook. Its rows are read as plans.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const FuzzSecond limit;
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    const TransferForm& form = TransferForms::plans();
    ImportHeadings headings(form);
    ImportReport report;
    qint64 line = 0;
    qint64 last = -1;
    const Status status = TableReader::read(device, line, [&](const TableRow& row) {
        FUZZ_REQUIRE(row.line > last && row.cells.size() <= TableReader::MostCells + 1);
        FUZZ_REQUIRE(std::any_of(row.cells.cbegin(), row.cells.cend(), [](const auto& cell) { return !cell.empty(); }));
        if (last < 0)
            headings.read(row, report);
        last = row.line;
        ImportRow read(headings, row, report);
        for (int column = 0; column < form.columns.size(); ++column) {
            FUZZ_REQUIRE(read.text(column) == read.text(column).trimmed());
            read.number(column, { 0, 1e14, 2 }, { QStringLiteral("元"), 1, false });
            read.date(column);
        }
        return Status();
    });
    FUZZ_REQUIRE(report.faults.size() <= report.mostFaults && report.faultCount >= report.faults.size());
    FUZZ_REQUIRE(status || line >= 0);
    return 0;
}
