#include "StrategyText.h"

#include "StrategyRemarks.h"

#include <QList>
#include <QRegularExpression>

#include <iconv.h>

#include <cerrno>

namespace {

Status takenAs(const char* attribute, const char* value, const char* meaning)
{
    return StrategyRemarks::inLine(
        1, { Error::ValueTakenAs, { QLatin1String(attribute), QLatin1String(value), QLatin1String(meaning) } });
}

struct Encoding {
    QByteArray name;
    int markSize = 0; ///< bytes of the byte order mark
};

QByteArray withoutHyphens(QByteArray name)
{
    return name.replace('-', "").replace('_', "");
}

const QList<QByteArray>& supported()
{
    static const QList<QByteArray> names{ "UTF-8", "UTF-16LE", "UTF-16BE", "US-ASCII", "ASCII", "ISO-8859-1",
        "ISO-8859-15", "WINDOWS-1252", "GB18030", "GBK", "GB2312", "BIG5", "SHIFT_JIS" };
    return names;
}

/// "UTF-8" for "UTF8"; a name that is not supported as it is.
QByteArray usualName(const QByteArray& name)
{
    for (const QByteArray& known : supported()) {
        if (withoutHyphens(known) == withoutHyphens(name))
            return known;
    }
    return name;
}

/// The first line would not be read if it were in the encoding that it declares.
void correctEncoding(Encoding& encoding, QVector<Status>& warnings)
{
    if (encoding.markSize > 0 || encoding.name != "UTF-16")
        return;
    encoding.name = QByteArrayLiteral("UTF-8");
    warnings.append(takenAs("encoding", "UTF-16", "UTF-8"));
}

/// The parser knows version 1.0 of XML only, which differs in signs that files do not use.
void correctVersion(QByteArray& text, QVector<Status>& warnings)
{
    static const QRegularExpression declaration(QStringLiteral("^<\\?xml\\s+version\\s*=\\s*[\"'](1\\.1)[\"']"));
    const QRegularExpressionMatch match = declaration.match(QString::fromLatin1(text.left(200)));
    if (!match.hasMatch())
        return;
    text.replace(match.capturedStart(1), match.capturedLength(1), "1.0");
    warnings.append(takenAs("version", "1.1", "1.0"));
}

Encoding encodingOf(const QByteArray& bytes)
{
    if (bytes.startsWith("\xEF\xBB\xBF"))
        return { "UTF-8", 3 };
    if (bytes.startsWith("\xFF\xFE"))
        return { "UTF-16LE", 2 };
    if (bytes.startsWith("\xFE\xFF"))
        return { "UTF-16BE", 2 };
    if (bytes.startsWith(QByteArray("<\0", 2)))
        return { "UTF-16LE", 0 };
    if (bytes.startsWith(QByteArray("\0<", 2)))
        return { "UTF-16BE", 0 };
    static const QRegularExpression declaration(
        QStringLiteral("^<\\?xml[^>]*encoding\\s*=\\s*[\"']([A-Za-z0-9._-]+)[\"']"));
    const QString start = QString::fromLatin1(bytes.left(200));
    const QByteArray declared = declaration.match(start).captured(1).toUpper().toLatin1();
    return { declared.isEmpty() ? QByteArray("UTF-8") : usualName(declared), 0 };
}

/// A conversion of the C library, closed at the end.
class Converter {
public:
    explicit Converter(const QByteArray& from)
        : m_handle(iconv_open("UTF-8", from.constData()))
    {
    }
    ~Converter()
    {
        if (isOpen())
            iconv_close(m_handle);
    }
    Q_DISABLE_COPY(Converter)

    bool isOpen() const { return m_handle != reinterpret_cast<iconv_t>(-1); }

    /// Converts as far as possible, returns what is left, and appends to `result`.
    size_t convert(QByteArray bytes, QByteArray& result) const
    {
        char* input = bytes.data();
        size_t left = static_cast<size_t>(bytes.size());
        QByteArray part(1 << 16, Qt::Uninitialized);
        size_t done = 0;
        do {
            char* output = part.data();
            size_t room = static_cast<size_t>(part.size());
            done = iconv(m_handle, &input, &left, &output, &room);
            result.append(part.constData(), static_cast<int>(output - part.constData()));
        } while (done == static_cast<size_t>(-1) && errno == E2BIG);
        return left;
    }

private:
    iconv_t m_handle;
};

} // namespace

Result<QByteArray> StrategyText::toUtf8(const QByteArray& bytes, QVector<Status>& warnings)
{
    Encoding encoding = encodingOf(bytes);
    correctEncoding(encoding, warnings);
    const QString shown = QString::fromLatin1(encoding.name);
    const Converter converter(encoding.name);
    if (!supported().contains(encoding.name) || !converter.isOpen())
        return StrategyRemarks::inLine(1, { Error::UnknownEncoding, { shown.left(64) } });
    QByteArray result;
    const size_t left = converter.convert(bytes.mid(encoding.markSize), result);
    correctVersion(result, warnings);
    if (left == 0)
        return result;
    return StrategyRemarks::inLine(1 + result.count('\n'), { Error::InvalidEncoding, { shown } });
}
