#include "SheetTable.h"

#include "WorkbookFile.h"

#include <QDate>
#include <QHash>
#include <QSet>
#include <QVector>
#include <QXmlStreamReader>

#include <cmath>
#include <map>

namespace {

const QString RelationsNamespace =
    QStringLiteral("http://schemas.openxmlformats.org/officeDocument/2006/relationships");
constexpr int MostLetters = 3;
constexpr int MostDays = 10000000;

/// The formats of dates that every workbook knows, some of them in Chinese ones only.
bool isBuiltInDate(int format)
{
    return (format >= 14 && format <= 17) || format == 22 || (format >= 27 && format <= 31) || format == 36
        || format == 50 || format == 57;
}

/// Whether a format has a year or a day, outside of quotes and brackets.
bool hasDay(const QString& code)
{
    QChar end; // of what is skipped
    bool isEscaped = false;
    for (const QChar c : code) {
        if (isEscaped || !end.isNull()) {
            end = c == end && !isEscaped ? QChar() : end;
            isEscaped = false;
        } else if (c == QLatin1Char('\\') || c == QLatin1Char('_')) {
            isEscaped = true;
        } else if (c == QLatin1Char('"') || c == QLatin1Char('[')) {
            end = c == QLatin1Char('[') ? QLatin1Char(']') : c;
        } else if (QStringLiteral("yYdD").contains(c)) {
            return true;
        }
    }
    return false;
}

/// The column of an address like "B12", from 0 on; -1 for another text.
int columnOf(const QString& address)
{
    int column = 0;
    int letters = 0;
    while (
        letters < address.size() && address.at(letters) >= QLatin1Char('A') && address.at(letters) <= QLatin1Char('Z'))
        column = 26 * column + (address.at(letters++).unicode() - 'A' + 1);
    return letters > 0 && letters <= MostLetters ? column - 1 : -1;
}

/// Reads the parts of a workbook that its first sheet needs.
class Workbook {
public:
    Workbook(const QByteArray& bytes, qint64& line, const TableReader::Take& take)
        : m_archive(bytes, TableReader::LargestWorkbook)
        , m_line(line)
        , m_take(take)
    {
    }

    Status read()
    {
        if (!m_archive.status())
            return m_archive.status();
        m_book = QStringLiteral("xl/workbook.xml");
        QString sheet;
        Status status = readFile(QStringLiteral("_rels/.rels"), [this](QXmlStreamReader& xml) {
            const auto type = xml.attributes().value(QLatin1String("Type"));
            if (xml.name() == QLatin1String("Relationship") && type.endsWith(QLatin1String("/officeDocument")))
                m_book = pathOf(QString(), xml.attributes().value(QLatin1String("Target")).toString());
        });
        if (status)
            status = readFile(m_book, [&](QXmlStreamReader& xml) { readBook(xml, sheet); });
        if (status)
            status = readRelations(sheet);
        if (status && m_archive.contains(m_strings))
            status = readFile(m_strings, [this](QXmlStreamReader& xml) { readString(xml); });
        if (status && m_archive.contains(m_styles))
            status = readFile(m_styles, [this](QXmlStreamReader& xml) { readStyle(xml); });
        return status ? readSheet() : status;
    }

private:
    using Start = std::function<void(QXmlStreamReader& xml)>;

    /// Calls `start` with each start of an element.
    Status readFile(const QString& name, const Start& start)
    {
        WorkbookFile file(m_archive, name);
        QXmlStreamReader xml(&file);
        while (!xml.atEnd()) {
            if (xml.readNext() == QXmlStreamReader::StartElement)
                start(xml);
        }
        if (!m_archive.status())
            return m_archive.status();
        return xml.hasError() ? Error::WorkbookInvalid : Status();
    }

    static QString pathOf(const QString& folder, const QString& target)
    {
        return target.startsWith(QLatin1Char('/')) ? target.mid(1) : folder + target;
    }

    void readBook(QXmlStreamReader& xml, QString& sheet)
    {
        const QXmlStreamAttributes attributes = xml.attributes();
        if (xml.name() == QLatin1String("sheet") && sheet.isEmpty())
            sheet = attributes.value(RelationsNamespace, QStringLiteral("id")).toString();
        const auto from1904 = attributes.value(QLatin1String("date1904"));
        if (xml.name() == QLatin1String("workbookPr")
            && (from1904 == QLatin1String("1") || from1904 == QLatin1String("true")))
            m_origin = QDate(1904, 1, 1);
    }

    Status readRelations(const QString& sheet)
    {
        const int slash = m_book.lastIndexOf(QLatin1Char('/')) + 1;
        const QString folder = m_book.left(slash);
        const QString name = folder + QStringLiteral("_rels/") + m_book.mid(slash) + QStringLiteral(".rels");
        const Status status = readFile(name, [&](QXmlStreamReader& xml) {
            const QXmlStreamAttributes attributes = xml.attributes();
            const auto type = attributes.value(QLatin1String("Type"));
            const QString target = pathOf(folder, attributes.value(QLatin1String("Target")).toString());
            if (attributes.value(QLatin1String("Id")) == sheet)
                m_sheet = target;
            else if (type.endsWith(QLatin1String("/sharedStrings")))
                m_strings = target;
            else if (type.endsWith(QLatin1String("/styles")))
                m_styles = target;
        });
        return status && m_sheet.isEmpty() ? Error::WorkbookInvalid : status;
    }

    /// The texts of an element, without readings of Chinese characters beside them.
    static QString textOf(QXmlStreamReader& xml)
    {
        QString text;
        int depth = 1;
        int reading = 0; // depth of the element that is left out
        bool isText = false;
        while (depth > 0 && !xml.atEnd()) {
            const auto token = xml.readNext();
            if (token == QXmlStreamReader::StartElement) {
                ++depth;
                if (reading == 0 && xml.name() == QLatin1String("rPh"))
                    reading = depth;
                isText = reading == 0 && xml.name() == QLatin1String("t");
            } else if (token == QXmlStreamReader::EndElement) {
                reading = reading == depth ? 0 : reading;
                isText = false;
                --depth;
            } else if (token == QXmlStreamReader::Characters && isText) {
                text += xml.text();
            }
        }
        return text;
    }

    void readString(QXmlStreamReader& xml)
    {
        if (xml.name() == QLatin1String("si"))
            m_texts << textOf(xml).toUtf8();
    }

    void readStyle(QXmlStreamReader& xml)
    {
        const QXmlStreamAttributes attributes = xml.attributes();
        const int format = attributes.value(QLatin1String("numFmtId")).toInt();
        if (xml.name() == QLatin1String("cellXfs"))
            m_formats.clear();
        else if (xml.name() == QLatin1String("cellStyles"))
            m_hasFormats = true;
        else if (xml.name() == QLatin1String("xf") && !m_hasFormats)
            m_formats << format;
        else if (xml.name() == QLatin1String("numFmt")
            && hasDay(attributes.value(QLatin1String("formatCode")).toString()))
            m_dates.insert(format);
    }

    Status readSheet()
    {
        WorkbookFile file(m_archive, m_sheet);
        QXmlStreamReader xml(&file);
        Status status;
        qint64 row = 0;
        while (!xml.atEnd() && status) {
            if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == QLatin1String("row")) {
                const qint64 given = xml.attributes().value(QLatin1String("r")).toLongLong();
                row = given > row ? given : row + 1;
                m_line = row;
                status = readRow(xml);
            }
        }
        if (!status || !m_archive.status())
            return status ? m_archive.status() : status;
        return xml.hasError() ? Error::WorkbookInvalid : Status();
    }

    Status readRow(QXmlStreamReader& xml)
    {
        m_cells.clear();
        qint64 size = 0;
        while (xml.readNextStartElement()) {
            if (xml.name() != QLatin1String("c")) {
                xml.skipCurrentElement();
                continue;
            }
            const QByteArray text = cellText(xml);
            size += text.size();
            if (m_cells.size() > TableReader::MostCells)
                return { Error::TooManyCells, { QString::number(TableReader::MostCells) } };
            if (size > TableReader::LongestRow)
                return { Error::RowTooLong, { QString::number(TableReader::LongestRow) } };
        }
        if (xml.hasError())
            return m_archive.status() ? Error::WorkbookInvalid : m_archive.status();
        TableRow row;
        row.line = m_line;
        for (const QByteArray& cell : m_cells)
            row.cells.emplace_back(cell.constData(), static_cast<size_t>(cell.size()));
        return row.cells.empty() ? Status() : m_take(row);
    }

    /// Puts the cell into its place of the row.
    QByteArray cellText(QXmlStreamReader& xml)
    {
        const QXmlStreamAttributes attributes = xml.attributes();
        const int given = columnOf(attributes.value(QLatin1String("r")).toString());
        const size_t column = given < 0 ? m_cells.size() : static_cast<size_t>(given);
        const QString type = attributes.value(QLatin1String("t")).toString();
        const int style = attributes.value(QLatin1String("s")).toInt();
        QString value;
        while (xml.readNextStartElement()) {
            if (xml.name() == QLatin1String("v"))
                value = xml.readElementText(QXmlStreamReader::IncludeChildElements);
            else if (xml.name() == QLatin1String("is"))
                value = textOf(xml);
            else
                xml.skipCurrentElement();
        }
        const QByteArray text = meaning(value, type, style);
        if (!text.isEmpty() && column <= static_cast<size_t>(TableReader::MostCells)) {
            m_cells.resize(std::max(m_cells.size(), column + 1));
            m_cells[column] = text;
        } else if (!text.isEmpty()) {
            m_cells.resize(TableReader::MostCells + 1);
        }
        return text;
    }

    QByteArray meaning(const QString& value, const QString& type, int style) const
    {
        if (type == QLatin1String("s"))
            return m_texts.value(value.toInt());
        if (type == QLatin1String("b"))
            return value == QLatin1String("1") ? "true" : "false";
        bool isNumber = false;
        const double number = value.toDouble(&isNumber);
        const bool isText = !type.isEmpty() && type != QLatin1String("n");
        if (isText || !isNumber)
            return value.toUtf8();
        const int format = m_formats.value(style);
        const bool isWhole = std::floor(number) == number && std::abs(number) < MostDays;
        if (isWhole && (isBuiltInDate(format) || m_dates.contains(format)))
            return m_origin.addDays(static_cast<qint64>(number)).toString(Qt::ISODate).toUtf8();
        return TableReader::numberText(number).toUtf8();
    }

    WorkbookArchive m_archive;
    qint64& m_line;
    const TableReader::Take& m_take;
    QString m_book;
    QString m_sheet;
    QString m_strings;
    QString m_styles;
    QVector<QByteArray> m_texts; ///< those that cells share
    QVector<int> m_formats;      ///< of the cells' styles
    bool m_hasFormats = false;
    QSet<int> m_dates;               ///< the workbook's own formats of dates
    QDate m_origin{ 1899, 12, 30 };  ///< the day that 0 means
    std::vector<QByteArray> m_cells; ///< of the row
};

} // namespace

Status SheetTable::read(
    const QByteArray& workbook, qint64& line, const TableReader::Take& take, const TableReader::Progress& progress)
{
    const auto takeAndReport = [&](const TableRow& row) -> Status {
        const Status status = take(row);
        return status && progress && !progress(workbook.size()) ? Status(Error::Cancelled) : status;
    };
    return Workbook(workbook, line, takeAndReport).read();
}
