#pragma once

#include "Status.h"

#include <QStringList>
#include <QVector>

#include <memory>

class QIODevice;

/// What the cells of a column are. In a workbook and in JSON, numbers are numbers; in a workbook, dates are dates.
/// Codes are written as texts; they are numbers of accounts, words for codes, formulas and the like.
enum class CellType { Text, Code, Number, Date };

/// A column of a written table.
struct TableColumn {
    /// In JSON.
    QString key;
    /// In CSV and workbooks.
    QString heading;
    CellType type = CellType::Text;
};

enum class TableFormat { Csv, Json, Workbook };

/// Writes a table row by row.
class TableWriter {
public:
    /// Of a workbook's sheet, with the headings.
    static constexpr int MostSheetRows = 1 << 20;

    virtual ~TableWriter() = default;

    /// CSV is UTF-8 with a byte order mark, as spreadsheets need it.
    static std::unique_ptr<TableWriter> create(
        QIODevice& device, TableFormat format, const QVector<TableColumn>& columns);

    /// A text for each column: numbers in the C locale, dates as yyyy-MM-dd, or empty.
    virtual void write(const QStringList& texts) = 0;
    virtual Status finish() = 0;
};
