#include "StrategyMarkup.h"

#include "StrategyDefinition.h"
#include "StrategyRemarks.h"

#include <algorithm>

namespace {

/// Reads the text as far as needed to find the tags.
class Scanner {
public:
    explicit Scanner(const QByteArray& text)
        : m_text(text)
    {
    }

    /// Goes to the next tag, comment, section or instruction.
    bool findMarkup()
    {
        skipTo('<');
        return m_position < m_text.size();
    }

    /// Returns the number of attributes if the markup is a tag.
    int readMarkup()
    {
        if (skips("<!--", "-->") || skips("<![CDATA[", "]]>") || skips("<?", "?>"))
            return 0;
        int attributes = 0;
        for (; m_position < m_text.size() && m_text.at(m_position) != '>'; ++m_position) {
            const char letter = m_text.at(m_position);
            if (letter == '=')
                ++attributes;
            if (letter == '"' || letter == '\'') {
                ++m_position;
                skipTo(letter);
            }
        }
        return attributes;
    }

    qint64 line() const { return 1 + std::count(m_text.cbegin(), m_text.cbegin() + m_position, '\n'); }

private:
    void skipTo(char letter)
    {
        const auto found = m_text.indexOf(letter, m_position);
        m_position = found < 0 ? m_text.size() : found;
    }

    bool skips(const QByteArray& start, const QByteArray& end)
    {
        if (m_text.mid(m_position, start.size()) != start)
            return false;
        const auto found = m_text.indexOf(end, m_position + start.size());
        m_position = found < 0 ? m_text.size() : found + end.size();
        return true;
    }

    const QByteArray& m_text;
    decltype(m_text.size()) m_position = 0;
};

} // namespace

// The parser compares every attribute of an element with all others, so their number is checked before.
Status StrategyMarkup::check(const QByteArray& text)
{
    Scanner scanner(text);
    while (scanner.findMarkup()) {
        if (scanner.readMarkup() > StrategyLimits::MaxAttributes)
            return StrategyRemarks::inLine(
                scanner.line(), { Error::TooManyAttributes, { QString::number(StrategyLimits::MaxAttributes) } });
    }
    return {};
}
