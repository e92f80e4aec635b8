#include "WorkbookFile.h"

#include <zip.h>

namespace {

constexpr int LongestTag = 16384;
constexpr int DeepestElement = 64;
constexpr int LongestText = 1 << 20;

} // namespace

WorkbookArchive::WorkbookArchive(const QByteArray& bytes, qint64 largestContents)
    : m_largest(largestContents)
{
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* const source =
        zip_source_buffer_create(bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0, &error);
    m_archive = source ? zip_open_from_source(source, ZIP_RDONLY, &error) : nullptr;
    if (source && !m_archive)
        zip_source_free(source);
    zip_error_fini(&error);
    if (!m_archive)
        m_status = Error::WorkbookInvalid;
}

WorkbookArchive::~WorkbookArchive()
{
    if (m_archive)
        zip_discard(m_archive);
}

bool WorkbookArchive::contains(const QString& name) const
{
    return m_archive && zip_name_locate(m_archive, name.toUtf8().constData(), 0) >= 0;
}

WorkbookFile::WorkbookFile(WorkbookArchive& archive, const QString& name)
    : m_archive(archive)
    , m_file(archive.m_archive ? zip_fopen(archive.m_archive, name.toUtf8().constData(), 0) : nullptr)
{
    open(QIODevice::ReadOnly);
}

WorkbookFile::~WorkbookFile()
{
    if (m_file)
        zip_fclose(m_file);
}

qint64 WorkbookFile::readData(char* data, qint64 most)
{
    const qint64 size = m_file && m_archive.m_status ? zip_fread(m_file, data, static_cast<zip_uint64_t>(most)) : -1;
    m_archive.m_read += qMax<qint64>(0, size);
    if (m_archive.m_read > m_archive.m_largest)
        m_archive.m_status = Status(Error::WorkbookTooLarge, { QString::number(m_archive.m_largest) });
    else if (size < 0 || isTooComplex(data, size))
        m_archive.m_status = Error::WorkbookInvalid;
    return m_archive.m_status ? size : -1;
}

bool WorkbookFile::isTooComplex(const char* data, qint64 size)
{
    for (qint64 i = 0; i < size; ++i) {
        const char c = data[i];
        if (m_tagLength == 0) {
            m_tagLength = c == '<' ? 1 : 0;
            m_textLength = c == '<' ? 0 : m_textLength + 1;
            if (m_textLength > LongestText)
                return true;
            continue;
        }
        if (m_tagLength++ == 1)
            m_first = c;
        // Comments and the like have quotes that are none.
        if (m_first == '!' || m_first == '?')
            m_tagLength = 0;
        else if (m_quote != '\0')
            m_quote = c == m_quote ? '\0' : m_quote;
        else if (c == '>')
            endTag();
        else
            m_quote = c == '"' || c == '\'' ? c : '\0';
        m_last = c;
        if (m_tagLength > LongestTag || m_depth > DeepestElement)
            return true;
    }
    return false;
}

void WorkbookFile::endTag()
{
    m_tagLength = 0;
    if (m_first == '/')
        --m_depth;
    else if (m_last != '/')
        ++m_depth;
}
