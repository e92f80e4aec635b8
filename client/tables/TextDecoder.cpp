#include "TextDecoder.h"

#include <algorithm>
#include <cerrno>

namespace {

// Of UTF-8 for one byte of GB18030.
constexpr size_t Growth = 3;

iconv_t none()
{
    return reinterpret_cast<iconv_t>(-1);
}

bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// Whether a UTF-8 text has a character of three bytes or more, as all Chinese ones are. Those of two bytes may be
/// GB18030 as well.
bool hasLongCharacter(std::string_view text)
{
    return std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0xE0; });
}

/// Appends what can be converted and returns 0, or what iconv reports: EILSEQ, EINVAL for a character without its end.
int convert(iconv_t converter, std::string_view from, std::string& to)
{
    const size_t before = to.size();
    to.resize(before + Growth * from.size());
    char* input = const_cast<char*>(from.data());
    size_t inputLeft = from.size();
    char* output = to.data() + before;
    size_t outputLeft = to.size() - before;
    const bool isDone = iconv(converter, &input, &inputLeft, &output, &outputLeft) != static_cast<size_t>(-1);
    const int error = isDone ? 0 : errno;
    to.resize(to.size() - outputLeft);
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    return error;
}

} // namespace

TextDecoder::~TextDecoder()
{
    if (m_converter != none())
        iconv_close(m_converter);
}

bool TextDecoder::open(Encoding encoding)
{
    if (m_converter != none())
        iconv_close(m_converter);
    m_encoding = encoding;
    m_converter = iconv_open("UTF-8", encoding == Encoding::Utf8 ? "UTF-8" : "GB18030");
    return m_converter != none();
}

void TextDecoder::look(std::string_view part)
{
    if (m_encoding != Encoding::Ascii || isAscii(part))
        return;
    std::string start;
    if (!open(Encoding::Utf8) || (convert(m_converter, part, start) == EILSEQ && !hasLongCharacter(start)))
        open(Encoding::Gb18030);
}

Status TextDecoder::append(std::string_view characters, std::string& utf8)
{
    if (characters.find('\0') != std::string_view::npos)
        return Error::NulInText;
    if (isAscii(characters)) {
        utf8.append(characters);
        return {};
    }
    look(characters);
    const bool isUtf8 = m_encoding == Encoding::Utf8;
    if (m_converter != none() && convert(m_converter, characters, utf8) == 0)
        return {};
    return { Error::WrongEncoding, { isUtf8 ? QStringLiteral("UTF-8") : QStringLiteral("GB18030") } };
}
