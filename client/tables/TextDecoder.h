#pragma once

#include "Status.h"

#include <iconv.h>

#include <string>
#include <string_view>

/// Makes UTF-8 of a text that is UTF-8 or GB18030. Which of them, is decided by the first part that is not plain ASCII.
class TextDecoder {
public:
    TextDecoder() = default;
    ~TextDecoder();
    TextDecoder(const TextDecoder&) = delete;
    TextDecoder& operator=(const TextDecoder&) = delete;

    /// Looks at the next part of the text, which is decoded afterwards. A part may end within a character.
    void look(std::string_view part);
    /// Appends the UTF-8 of some characters. Fails if the bytes are none, or if there is a NUL.
    Status append(std::string_view characters, std::string& utf8);

private:
    enum class Encoding { Ascii, Utf8, Gb18030 };

    bool open(Encoding encoding);

    Encoding m_encoding = Encoding::Ascii;
    iconv_t m_converter = reinterpret_cast<iconv_t>(-1);
};
