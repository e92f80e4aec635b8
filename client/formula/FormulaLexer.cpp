#include "FormulaLexer.h"

namespace {

using namespace FormulaLexer;

const QStringList Functions{ QStringLiteral("max"), QStringLiteral("min") };

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool isNameStart(QChar c)
{
    return c.isLetter() || c == QLatin1Char('_');
}

int endOfNumber(const QString& text, int at)
{
    while (at < text.size() && (isDigit(text.at(at)) || text.at(at) == QLatin1Char('.')))
        ++at;
    return at;
}

int endOfName(const QString& text, int at)
{
    while (at < text.size() && (isNameStart(text.at(at)) || isDigit(text.at(at))))
        ++at;
    return at;
}

bool isNumber(const QString& text)
{
    return text.count(QLatin1Char('.')) <= 1 && isDigit(text.at(0)) && isDigit(text.at(text.size() - 1));
}

Kind kindOfSign(QChar c)
{
    switch (c.unicode()) {
    case '(':
        return Kind::Open;
    case ')':
        return Kind::Close;
    case ',':
        return Kind::Comma;
    default:
        return Kind::Operator;
    }
}

/// Splits a formula into tokens in one pass.
class Scanner {
public:
    Scanner(const QString& formula, const QStringList& items)
        : m_text(formula)
        , m_items(items)
    {
    }

    Result<QVector<Token>> scan()
    {
        while (m_at < m_text.size()) {
            if (Status status = step(); !status)
                return status;
        }
        return m_tokens;
    }

private:
    Status step()
    {
        const QChar c = m_text.at(m_at);
        if (c == QLatin1Char(' ')) {
            ++m_at;
            return {};
        }
        if (isDigit(c) || c == QLatin1Char('.'))
            return takeNumber();
        if (isNameStart(c))
            return takeName();
        if (QStringLiteral("+-*/(),").contains(c))
            return take(kindOfSign(c), m_at + 1);
        return errorAt(m_at, { Error::UnsupportedCharacter, { c } });
    }

    Status takeNumber()
    {
        const int end = endOfNumber(m_text, m_at);
        const QString number = m_text.mid(m_at, end - m_at);
        if (!isNumber(number))
            return errorAt(m_at, { Error::MalformedNumber, { number } });
        return take(Kind::Number, end);
    }

    Status takeName()
    {
        const int end = endOfName(m_text, m_at);
        const QString name = m_text.mid(m_at, end - m_at);
        if (m_items.contains(name))
            return take(Kind::Item, end);
        if (Functions.contains(name))
            return take(Kind::Function, end);
        return errorAt(m_at, { Error::UnknownName, { name } });
    }

    Status take(Kind kind, int end)
    {
        m_tokens << Token{ kind, m_text.mid(m_at, end - m_at), m_at };
        m_at = end;
        return {};
    }

    const QString& m_text;
    const QStringList& m_items;
    int m_at = 0;
    QVector<Token> m_tokens;
};

} // namespace

Result<QVector<FormulaLexer::Token>> FormulaLexer::tokens(const QString& formula, const QStringList& items)
{
    return Scanner(formula, items).scan();
}

Status FormulaLexer::errorAt(int position, const Status& error)
{
    return { Error::FormulaErrorAt, { QString::number(position + 1) }, error };
}
