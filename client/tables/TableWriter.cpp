#include "TableWriter.h"

#include <QDate>
#include <QFile>
#include <QIODevice>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTemporaryFile>

#include <xlsxwriter.h>

namespace {

// With more digits, a spreadsheet would round.
constexpr int MostDigits = 15;

bool isNumber(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("\\A-?(0|[1-9][0-9]*)(\\.[0-9]+)?\\z"));
    return text.size() <= MostDigits && form.match(text).hasMatch();
}

Status written(QIODevice& device, const QByteArray& bytes)
{
    return device.write(bytes) == bytes.size() ? Status() : Status(Error::TableNotWritten, { device.errorString() });
}

class CsvWriter : public TableWriter {
public:
    CsvWriter(QIODevice& device, const QVector<TableColumn>& columns)
        : m_device(device)
    {
        QStringList headings;
        for (const TableColumn& column : columns)
            headings << column.heading;
        m_status = written(device, "\xEF\xBB\xBF");
        write(headings);
    }

    void write(const QStringList& texts) override
    {
        QByteArrayList cells;
        for (const QString& text : texts)
            cells << quoted(text);
        if (m_status)
            m_status = written(m_device, cells.join(',') + "\r\n");
    }

    Status finish() override { return m_status; }

private:
    static QByteArray quoted(const QString& text)
    {
        static const QRegularExpression special(QStringLiteral("[,;\t\"\r\n]|^\\s|\\s$"));
        QByteArray bytes = text.toUtf8();
        return special.match(text).hasMatch() ? '"' + bytes.replace('"', "\"\"") + '"' : bytes;
    }

    QIODevice& m_device;
    Status m_status;
};

class JsonWriter : public TableWriter {
public:
    JsonWriter(QIODevice& device, const QVector<TableColumn>& columns)
        : m_device(device)
        , m_columns(columns)
        , m_status(written(device, "["))
    {
    }

    void write(const QStringList& texts) override
    {
        QJsonObject object;
        for (int i = 0; i < m_columns.size(); ++i) {
            const bool isPlain = m_columns.at(i).type == CellType::Number && isNumber(texts.at(i));
            object.insert(m_columns.at(i).key, isPlain ? QJsonValue(texts.at(i).toDouble()) : QJsonValue(texts.at(i)));
        }
        const QByteArray separator = m_isFirst ? "\n" : ",\n";
        m_isFirst = false;
        if (m_status)
            m_status = written(m_device, separator + QJsonDocument(object).toJson(QJsonDocument::Compact));
    }

    Status finish() override { return m_status ? written(m_device, "\n]\n") : m_status; }

private:
    QIODevice& m_device;
    const QVector<TableColumn> m_columns;
    bool m_isFirst = true;
    Status m_status;
};

/// The library writes a file of its own, which is copied to the device.
class WorkbookWriter : public TableWriter {
public:
    WorkbookWriter(QIODevice& device, const QVector<TableColumn>& columns)
        : m_device(device)
        , m_columns(columns)
    {
        m_file.open();
        m_workbook = workbook_new(m_file.fileName().toLocal8Bit().constData());
        m_sheet = workbook_add_worksheet(m_workbook, nullptr);
        m_date = workbook_add_format(m_workbook);
        format_set_num_format(m_date, "yyyy-mm-dd");
        for (int i = 0; i < columns.size(); ++i)
            writeText(i, columns.at(i).heading);
    }
    ~WorkbookWriter() override
    {
        if (m_workbook)
            workbook_close(m_workbook);
    }
    Q_DISABLE_COPY(WorkbookWriter)

    void write(const QStringList& texts) override
    {
        if (m_row + 1 >= TableWriter::MostSheetRows)
            m_isFull = true;
        if (m_isFull)
            return;
        ++m_row;
        for (int i = 0; i < m_columns.size(); ++i)
            writeCell(i, texts.at(i));
    }

    Status finish() override
    {
        const lxw_error error = workbook_close(m_workbook);
        m_workbook = nullptr;
        if (m_isFull)
            return { Error::TooManyRowsForSheet, { QString::number(TableWriter::MostSheetRows) } };
        if (m_failure != LXW_NO_ERROR || error != LXW_NO_ERROR)
            return { Error::TableNotWritten,
                { QString::fromUtf8(lxw_strerror(m_failure == LXW_NO_ERROR ? error : m_failure)) } };
        QFile file(m_file.fileName());
        if (!file.open(QIODevice::ReadOnly))
            return { Error::TableNotWritten, { file.errorString() } };
        Status status;
        while (status && !file.atEnd())
            status = written(m_device, file.read(1 << 16));
        return status;
    }

private:
    void writeCell(int column, const QString& text)
    {
        const CellType type = m_columns.at(column).type;
        const QDate day = type == CellType::Date ? QDate::fromString(text, Qt::ISODate) : QDate();
        if (day.isValid()) {
            lxw_datetime date{ day.year(), day.month(), day.day(), 0, 0, 0 };
            note(worksheet_write_datetime(m_sheet, m_row, position(column), &date, m_date));
        } else if (type == CellType::Number && isNumber(text)) {
            note(worksheet_write_number(m_sheet, m_row, position(column), text.toDouble(), nullptr));
        } else if (!text.isEmpty()) {
            writeText(column, text);
        }
    }

    void writeText(int column, const QString& text)
    {
        note(worksheet_write_string(m_sheet, m_row, position(column), text.toUtf8().constData(), nullptr));
    }

    static lxw_col_t position(int column) { return static_cast<lxw_col_t>(column); }

    void note(lxw_error error)
    {
        if (m_failure == LXW_NO_ERROR)
            m_failure = error;
    }

    QIODevice& m_device;
    const QVector<TableColumn> m_columns;
    QTemporaryFile m_file;
    lxw_workbook* m_workbook = nullptr;
    lxw_worksheet* m_sheet = nullptr;
    lxw_format* m_date = nullptr;
    lxw_row_t m_row = 0;
    lxw_error m_failure = LXW_NO_ERROR;
    bool m_isFull = false;
};

} // namespace

std::unique_ptr<TableWriter> TableWriter::create(
    QIODevice& device, TableFormat format, const QVector<TableColumn>& columns)
{
    if (format == TableFormat::Csv)
        return std::make_unique<CsvWriter>(device, columns);
    if (format == TableFormat::Json)
        return std::make_unique<JsonWriter>(device, columns);
    return std::make_unique<WorkbookWriter>(device, columns);
}
