#include "ImportRow.h"

#include "DateRules.h"
#include "ErrorText.h"
#include "PlainText.h"

#include <QRegularExpression>

namespace {

QString textOf(std::string_view bytes)
{
    return QString::fromUtf8(bytes.data(), static_cast<int>(bytes.size())).trimmed();
}

QStringList namesOf(const QVector<TransferForm::Column>& columns)
{
    QStringList names;
    for (const TransferForm::Column& column : columns)
        names << column.name();
    return names;
}

} // namespace

void ImportHeadings::read(const TableRow& row, ImportReport& report)
{
    m_places.fill(-1, m_form.columns.size());
    for (const std::string_view cell : row.cells) {
        const QString heading = textOf(cell);
        const int place = m_headings.size();
        m_headings << heading;
        const int column = m_form.columnNamed(PlainText::halfWidth(heading));
        if (heading.isEmpty())
            continue;
        if (column < 0)
            report.refuse({ row.line, place + 1, heading,
                { Error::UnknownHeading, { heading, listText(namesOf(m_form.columns)) } } });
        else if (m_places.at(column) >= 0)
            report.refuse({ row.line, place + 1, heading, { Error::DuplicateHeading, { heading } } });
        else
            m_places[column] = place;
    }
    QStringList missing;
    for (int i = 0; i < m_form.columns.size(); ++i) {
        if (m_form.columns.at(i).isRequired && m_places.at(i) < 0)
            missing << m_form.columns.at(i).name();
    }
    if (!missing.isEmpty())
        report.refuse({ row.line, 0, QString(), { Error::MissingHeadings, { listText(missing) } } });
}

ImportRow::ImportRow(const ImportHeadings& headings, const TableRow& row, ImportReport& report)
    : m_headings(headings)
    , m_row(row)
    , m_report(report)
{
    for (size_t place = 0; place < row.cells.size(); ++place) {
        if (!row.cells.at(place).empty() && headings.heading(static_cast<int>(place)).isEmpty()) {
            m_isRefused = true;
            m_report.refuse({ line(), static_cast<int>(place) + 1, QString(), Error::CellBeyondHeadings });
        }
    }
}

std::string_view ImportRow::bytes(int column) const
{
    const int place = m_headings.placeOf(column);
    return place >= 0 && static_cast<size_t>(place) < m_row.cells.size() ? m_row.cells[static_cast<size_t>(place)]
                                                                         : std::string_view();
}

QString ImportRow::cell(int column) const
{
    const QString text = textOf(bytes(column));
    return m_headings.form().columns.at(column).type == CellType::Text ? text : PlainText::halfWidth(text);
}

QString ImportRow::text(int column) const
{
    const QString own = cell(column);
    return own.isEmpty() ? m_defaults.value(column) : own;
}

QString ImportRow::neededText(int column)
{
    const QString cell = text(column);
    if (cell.isEmpty())
        refuse(column, { Error::CellMissing, { caption(column) } });
    return cell;
}

QString ImportRow::code(int column, const CodeWords& words, const std::optional<QString>& absent)
{
    const QString cell = absent ? text(column) : neededText(column);
    if (cell.isEmpty())
        return absent.value_or(QString());
    const QString code = words.code(cell);
    if (code.isNull())
        refuse(column, { Error::UnknownCode, { caption(column), cell } });
    return code;
}

std::optional<double> ImportRow::number(int column, const DecimalLimits& limits, const NumberUnit& unit)
{
    const QString cell = text(column);
    if (cell.isEmpty())
        return std::nullopt;
    const Result<double> number = typedNumber(cell, limits, unit);
    if (number)
        return *number;
    refuse(column, number.status());
    return std::nullopt;
}

std::optional<double> ImportRow::neededNumber(int column, const DecimalLimits& limits, const NumberUnit& unit)
{
    return neededText(column).isEmpty() ? std::nullopt : number(column, limits, unit);
}

QDate ImportRow::date(int column)
{
    const QString cell = text(column);
    if (cell.isEmpty())
        return {};
    const Result<QDate> date = dateWithYear(cell);
    if (!date)
        refuse(column, date.status());
    return date.valueOr({});
}

void ImportRow::refuse(int column, const Status& reason)
{
    m_isRefused = true;
    const int place = m_headings.placeOf(column);
    m_report.refuse({ line(), place + 1, m_headings.heading(place), reason });
}

void ImportRow::refuse(const Status& reason)
{
    m_isRefused = true;
    m_report.refuse({ line(), 0, QString(), reason });
}

// A file must mean the same when it is read another day.
Result<QDate> dateWithYear(const QString& text)
{
    static const QRegularExpression year(QStringLiteral("^[0-9]{4}([-/.年]|[0-9]{4}$)"));
    if (!year.match(PlainText::halfWidth(text)).hasMatch())
        return { Error::DateWithoutYear, { text.left(20) } };
    return typedDate(text, {}, {});
}
