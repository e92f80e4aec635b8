#include "FormulaLexer.h"

namespace {

using namespace FormulaLexer;

const QStringList functions{ QStringLiteral("max"), QStringLiteral("min") };

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

/// Walks over the formula once.
class Scanner {
public:
    Scanner(const QString& formula, const QStringList& items)
        : m_text(formula)
        , m_items(items)
    {
    }

    Result scan()
    {
        while (m_at < m_text.size() && m_result.reason.isEmpty())
            step();
        return m_result;
    }

private:
    void step()
    {
        const QChar c = m_text.at(m_at);
        if (c == QLatin1Char(' '))
            ++m_at;
        else if (isDigit(c) || c == QLatin1Char('.'))
            takeNumber();
        else if (isNameStart(c))
            takeName();
        else if (QStringLiteral("+-*/(),").contains(c))
            take(kindOfSign(c), m_at + 1);
        else
            refuse(QStringLiteral("不支持的字符“%1”").arg(c));
    }

    void takeNumber()
    {
        const int end = endOfNumber(m_text, m_at);
        const QString number = m_text.mid(m_at, end - m_at);
        if (isNumber(number))
            take(Kind::Number, end);
        else
            refuse(QStringLiteral("数字“%1”格式不正确").arg(number));
    }

    void takeName()
    {
        const int end = endOfName(m_text, m_at);
        const QString name = m_text.mid(m_at, end - m_at);
        if (m_items.contains(name))
            take(Kind::Item, end);
        else if (functions.contains(name))
            take(Kind::Function, end);
        else
            refuse(QStringLiteral("未知的名称“%1”").arg(name));
    }

    void take(Kind kind, int end)
    {
        m_result.tokens << Token{ kind, m_text.mid(m_at, end - m_at), m_at };
        m_at = end;
    }

    void refuse(const QString& reason) { m_result.reason = reason + place(m_at); }

    const QString& m_text;
    const QStringList& m_items;
    int m_at = 0;
    Result m_result;
};

} // namespace

FormulaLexer::Result FormulaLexer::tokens(const QString& formula, const QStringList& items)
{
    return Scanner(formula, items).scan();
}

QString FormulaLexer::place(int position)
{
    return QStringLiteral("（第%1个字符）").arg(position + 1);
}
