#include "CsvTable.h"

#include "TextDecoder.h"

#include <QIODevice>

#include <csv.h>

#include <algorithm>
#include <stdexcept>

namespace {

constexpr qint64 PartSize = 65536;
constexpr size_t BlockSize = 4096;
constexpr char ByteOrderMark[] = "\xEF\xBB\xBF";
constexpr char Separators[] = { ',', '\t', ';' };

/// The separator that is most frequent in the first line, outside of quotes.
char separatorOf(const QByteArray& text)
{
    int counts[3] = {};
    bool isQuoted = false;
    for (const char c : text) {
        if (!isQuoted && (c == '\n' || c == '\r'))
            break;
        isQuoted = isQuoted != (c == '"');
        const auto* const found = std::find(std::begin(Separators), std::end(Separators), c);
        if (!isQuoted && found != std::end(Separators))
            ++counts[found - std::begin(Separators)];
    }
    return Separators[std::max_element(std::begin(counts), std::end(counts)) - std::begin(counts)];
}

bool isUtf16(const QByteArray& text)
{
    return text.startsWith("\xFF\xFE") || text.startsWith("\xFE\xFF");
}

/// libcsv's parser with the row that it is in.
class Parser {
public:
    Parser(qint64& line, const TableReader::Take& take)
        : m_line(line)
        , m_take(take)
    {
        if (csv_init(&m_parser, CSV_STRICT | CSV_STRICT_FINI | CSV_REPALL_NL) != 0)
            throw std::bad_alloc();
        csv_set_blk_size(&m_parser, BlockSize);
    }
    ~Parser() { csv_free(&m_parser); }
    Q_DISABLE_COPY(Parser)

    void setSeparator(char separator) { csv_set_delim(&m_parser, static_cast<unsigned char>(separator)); }

    Status parse(const QByteArray& part)
    {
        m_decoder.look({ part.constData(), static_cast<size_t>(part.size()) });
        const auto size = static_cast<size_t>(part.size());
        const size_t parsed = csv_parse(&m_parser, part.constData(), size, takeField, takeEnd, this);
        if (m_status && parsed != size)
            return Error::QuoteMisplaced;
        if (m_status && m_bytes.size() + m_parser.entry_pos > TableReader::LongestRow)
            return { Error::RowTooLong, { QString::number(TableReader::LongestRow) } };
        return m_status;
    }

    Status finish()
    {
        const bool isClosed = csv_fini(&m_parser, takeField, takeEnd, this) == 0;
        return m_status && !isClosed ? Error::QuoteNotClosed : m_status;
    }

private:
    static void takeField(void* field, size_t size, void* self)
    {
        static_cast<Parser*>(self)->addField({ static_cast<const char*>(field), size });
    }

    static void takeEnd(int sign, void* self) { static_cast<Parser*>(self)->endRow(sign); }

    void addField(std::string_view field)
    {
        if (!m_status)
            return;
        if (m_ends.empty())
            m_row.line = m_nextLine;
        m_line = m_row.line;
        m_status = m_decoder.append(field, m_bytes);
        m_ends.push_back(m_bytes.size());
        m_nextLine += std::count(field.begin(), field.end(), '\n');
        if (m_status && m_ends.size() > TableReader::MostCells)
            m_status = Status(Error::TooManyCells, { QString::number(TableReader::MostCells) });
    }

    // Each carriage return and line feed is reported; a pair of them is one end of a line.
    void endRow(int sign)
    {
        const bool endsPair = sign == '\n' && m_lastSign == '\r' && m_ends.empty();
        m_lastSign = sign;
        if (m_status && !m_ends.empty())
            takeRow();
        if (!endsPair)
            ++m_nextLine;
        if (m_status)
            m_line = m_nextLine;
    }

    void takeRow()
    {
        m_row.cells.clear();
        size_t begin = 0;
        for (const size_t end : m_ends) {
            m_row.cells.emplace_back(m_bytes.data() + begin, end - begin);
            begin = end;
        }
        m_status = m_take(m_row);
        m_bytes.clear();
        m_ends.clear();
    }

    qint64& m_line;
    const TableReader::Take& m_take;
    csv_parser m_parser;
    TextDecoder m_decoder;
    qint64 m_nextLine = 1;
    int m_lastSign = 0;
    std::string m_bytes;        ///< of the row's cells
    std::vector<size_t> m_ends; ///< of the cells in the bytes
    TableRow m_row;
    Status m_status;
};

} // namespace

Status CsvTable::read(
    QIODevice& device, qint64& line, const TableReader::Take& take, const TableReader::Progress& progress)
{
    Parser parser(line, take);
    QByteArray part = device.read(PartSize);
    if (isUtf16(part))
        return Error::Utf16Text;
    if (part.startsWith(ByteOrderMark))
        part.remove(0, 3);
    parser.setSeparator(separatorOf(part));
    qint64 bytes = 0;
    for (; !part.isEmpty(); part = device.read(PartSize)) {
        if (Status status = parser.parse(part); !status)
            return status;
        bytes += part.size();
        if (progress && !progress(bytes))
            return Error::Cancelled;
    }
    return parser.finish();
}
