#pragma once

#include "CodeWords.h"
#include "DecimalText.h"
#include "ImportReport.h"
#include "TableReader.h"
#include "TransferForm.h"

#include <QDate>

#include <optional>

/// Where the columns of a form are in a file.
class ImportHeadings {
public:
    explicit ImportHeadings(const TransferForm& form)
        : m_form(form)
    {
    }

    /// Finds the columns by the names in the first row. Adds what is wrong with them to the report.
    void read(const TableRow& row, ImportReport& report);
    const TransferForm& form() const { return m_form; }
    /// The number of a column in the file, from 0 on; -1 if the file does not have it.
    int placeOf(int column) const { return m_places.value(column, -1); }
    int count() const { return m_headings.size(); }
    QString heading(int place) const { return m_headings.value(place); }

private:
    const TransferForm& m_form;
    QStringList m_headings;
    QVector<int> m_places; ///< by column
};

/// A row of a file in the columns of its form. What cannot be used is added to the report with its place.
class ImportRow {
public:
    ImportRow(const ImportHeadings& headings, const TableRow& row, ImportReport& report);

    /// Sets what empty cells mean, by column.
    void setDefaults(const QStringList& texts) { m_defaults = texts; }
    qint64 line() const { return m_row.line; }
    /// Whether the file has the column.
    bool has(int column) const { return m_headings.placeOf(column) >= 0; }
    /// The cell as it is, empty if the file does not have it.
    std::string_view bytes(int column) const;
    /// Without blanks around it; full-width characters become those of ASCII except in a `CellType::Text`.
    QString cell(int column) const;
    /// The same; its default if it is empty.
    QString text(int column) const;
    /// Like `text`; refuses an empty one.
    QString neededText(int column);
    /// The code of a word. Refuses another text; an empty one means `absent`, or is refused without it.
    QString code(int column, const CodeWords& words, const std::optional<QString>& absent = {});
    /// The following are absent for an empty text or one that is refused.
    std::optional<double> number(int column, const DecimalLimits& limits, const NumberUnit& unit = {});
    /// A number as people write it, which must be there.
    std::optional<double> neededNumber(int column, const DecimalLimits& limits, const NumberUnit& unit = {});
    /// A date with its year.
    QDate date(int column);

    void refuse(int column, const Status& reason);
    /// Refuses the row, not one of its cells.
    void refuse(const Status& reason);
    bool isRefused() const { return m_isRefused; }

    /// The name of a column as it is shown.
    QString caption(int column) const { return m_headings.form().columns.at(column).name(); }

private:
    const ImportHeadings& m_headings;
    const TableRow& m_row;
    ImportReport& m_report;
    QStringList m_defaults;
    bool m_isRefused = false;
};

/// A date as people write it, with its year.
Result<QDate> dateWithYear(const QString& text);
