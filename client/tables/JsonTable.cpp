#include "JsonTable.h"

#include <QIODevice>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <optional>

namespace {

constexpr qint64 PartSize = 65536;
constexpr char ByteOrderMark[] = "\xEF\xBB\xBF";
constexpr int EndOfFile = -1;

bool isBlank(int c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

/// The text without a byte order mark and blanks at its start.
QByteArray begun(QByteArray text)
{
    if (text.startsWith(ByteOrderMark))
        text.remove(0, 3);
    text.remove(0, static_cast<int>(std::find_if_not(text.cbegin(), text.cend(), isBlank) - text.cbegin()));
    return text;
}

/// Reads an array one object at a time.
class Objects {
public:
    using Take = std::function<Status(const QJsonObject& object)>;
    /// Called for each part of the file with the number of bytes that were read.
    using GoesOn = std::function<bool(qint64 bytes)>;

    Objects(QIODevice& device, qint64& line, const GoesOn& goesOn)
        : m_device(device)
        , m_line(line)
        , m_goesOn(goesOn)
    {
    }

    Status read(const Take& take)
    {
        m_line = 0;
        if (!m_device.seek(0))
            return Error::FileNotOpened;
        m_part = begun(m_device.read(PartSize));
        const Status status = readArray(take);
        return m_isCancelled ? Status(Error::Cancelled) : status;
    }

private:
    Status readArray(const Take& take)
    {
        if (nextSign() != '[')
            return Error::NoJsonTable;
        int sign = nextSign();
        while (sign != ']') {
            ++m_line;
            if (sign != '{')
                return Error::NoJsonTable;
            if (Status status = readObject(take); !status)
                return status;
            sign = nextSign();
            if (sign == ',')
                sign = nextSign() == '{' ? '{' : EndOfFile;
            else if (sign != ']')
                return Error::NoJsonTable;
        }
        return nextSign() == EndOfFile ? Status() : Error::NoJsonTable;
    }

    // The values are plain, so the object ends with the first brace outside of texts.
    Status readObject(const Take& take)
    {
        m_object = "{";
        bool isText = false;
        bool isEscaped = false;
        int c = nextByte();
        for (; c != EndOfFile && (c != '}' || isText); c = nextByte()) {
            m_object += static_cast<char>(c);
            if (m_object.size() > TableReader::LongestRow)
                return { Error::RowTooLong, { QString::number(TableReader::LongestRow) } };
            isText = isText != (c == '"' && !isEscaped);
            isEscaped = c == '\\' && !isEscaped;
        }
        const QJsonDocument document = QJsonDocument::fromJson(m_object + '}');
        return c == '}' && document.isObject() ? take(document.object()) : Error::NoJsonTable;
    }

    int nextSign()
    {
        int c = nextByte();
        while (isBlank(c))
            c = nextByte();
        return c;
    }

    int nextByte()
    {
        if (m_place == m_part.size() && !readPart())
            return EndOfFile;
        return static_cast<unsigned char>(m_part.at(m_place++));
    }

    bool readPart()
    {
        m_isCancelled = m_isCancelled || !m_goesOn(m_device.pos());
        m_part = m_isCancelled ? QByteArray() : m_device.read(PartSize);
        m_place = 0;
        return !m_part.isEmpty();
    }

    QIODevice& m_device;
    qint64& m_line;
    const GoesOn m_goesOn;
    QByteArray m_part;
    int m_place = 0; ///< in the part
    QByteArray m_object;
    bool m_isCancelled = false;
};

/// Absent for an array or an object.
std::optional<QString> textOf(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::Bool:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QJsonValue::Double:
        return TableReader::numberText(value.toDouble());
    case QJsonValue::String:
        return value.toString();
    case QJsonValue::Array:
    case QJsonValue::Object:
        return std::nullopt;
    case QJsonValue::Null:
    case QJsonValue::Undefined:
        break;
    }
    return QString();
}

Status take(const QStringList& texts, qint64 line, const TableReader::Take& takeRow)
{
    std::vector<QByteArray> cells;
    for (const QString& text : texts)
        cells.push_back(text.toUtf8());
    TableRow row;
    row.line = line;
    for (const QByteArray& cell : cells)
        row.cells.emplace_back(cell.constData(), static_cast<size_t>(cell.size()));
    return takeRow(row);
}

/// The keys of all objects, in the order of their first use.
class Keys {
public:
    const QStringList& names() const { return m_names; }

    Status add(const QJsonObject& object)
    {
        for (auto value = object.begin(); value != object.end(); ++value) {
            if (!m_known.contains(value.key()))
                append(value.key());
        }
        if (m_names.size() > TableReader::MostCells)
            return { Error::TooManyCells, { QString::number(TableReader::MostCells) } };
        return m_length <= TableReader::LongestRow
            ? Status()
            : Status(Error::RowTooLong, { QString::number(TableReader::LongestRow) });
    }

private:
    void append(const QString& key)
    {
        m_known.insert(key);
        m_names << key;
        m_length += key.toUtf8().size();
    }

    QStringList m_names;
    QSet<QString> m_known;
    qint64 m_length = 0; ///< bytes of all names
};

Status takeObject(const QJsonObject& object, const QStringList& keys, qint64 line, const TableReader::Take& takeRow)
{
    QStringList texts;
    for (const QString& key : keys) {
        const std::optional<QString> text = textOf(object.value(key));
        if (!text)
            return Error::NoJsonTable;
        texts << *text;
    }
    return take(texts, line, takeRow);
}

} // namespace

bool JsonTable::isStart(const QByteArray& bytes)
{
    return begun(bytes).startsWith('[');
}

// The first row has all keys, so the file is read twice, each time for one half of the progress.
Status JsonTable::read(
    QIODevice& device, qint64& line, const TableReader::Take& takeRow, const TableReader::Progress& progress)
{
    const qint64 size = device.size();
    Keys keys;
    const auto addKeys = [&keys](const QJsonObject& object) { return keys.add(object); };
    Objects first(device, line, [&](qint64 bytes) { return !progress || progress(bytes / 2); });
    if (Status status = first.read(addKeys); !status || line == 0)
        return status;
    if (Status status = take(keys.names(), 0, takeRow); !status)
        return status;
    Objects second(device, line, [&](qint64 bytes) { return !progress || progress((size + bytes) / 2); });
    return second.read([&](const QJsonObject& object) { return takeObject(object, keys.names(), line, takeRow); });
}
