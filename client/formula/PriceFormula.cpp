#include "PriceFormula.h"

#include "FormulaLexer.h"

#include <QVector>

#include <muParser.h>

#include <algorithm>
#include <cmath>

namespace {

using FormulaLexer::Kind;
using FormulaLexer::Token;

double larger(double a, double b)
{
    return std::max(a, b);
}

double smaller(double a, double b)
{
    return std::min(a, b);
}

/// The formula as the parser reads it: names in plain letters, and where each of its characters came from.
struct Translation {
    std::string text;
    QVector<int> positions;

    void append(const std::string& part, int position)
    {
        text += part;
        positions.insert(positions.size(), static_cast<int>(part.size()), position);
    }
};

std::string variable(int item)
{
    return "p" + std::to_string(item);
}

Translation translate(const QVector<Token>& tokens, const QStringList& names)
{
    Translation result;
    for (const Token& token : tokens) {
        const bool isItem = token.kind == Kind::Item;
        const std::string text = isItem ? variable(names.indexOf(token.text)) : token.text.toStdString();
        // The space keeps "1 2" from turning into 12; the parser wants none behind the name of a function.
        result.append(token.kind == Kind::Function ? text : text + " ", token.position);
    }
    return result;
}

QString depthReason(const QVector<Token>& tokens)
{
    int depth = 0;
    for (const Token& token : tokens) {
        depth += token.kind == Kind::Open ? 1 : 0;
        depth -= token.kind == Kind::Close ? 1 : 0;
        if (depth > PriceFormula::maximumDepth) {
            return QStringLiteral("括号嵌套超过%1层%2")
                .arg(PriceFormula::maximumDepth)
                .arg(FormulaLexer::place(token.position));
        }
    }
    return QString();
}

QString textOfError(mu::EErrorCodes code)
{
    switch (code) {
    case mu::ecUNEXPECTED_EOF:
        return QStringLiteral("公式不完整");
    case mu::ecMISSING_PARENS:
        return QStringLiteral("缺少右括号");
    case mu::ecUNEXPECTED_PARENS:
        return QStringLiteral("括号位置不正确");
    case mu::ecTOO_MANY_PARAMS:
        return QStringLiteral("函数的参数过多，应为2个");
    case mu::ecTOO_FEW_PARAMS:
        return QStringLiteral("函数的参数不足，应为2个");
    case mu::ecUNEXPECTED_ARG_SEP:
    case mu::ecUNEXPECTED_ARG:
        return QStringLiteral("逗号位置不正确");
    case mu::ecDIV_BY_ZERO:
        return QStringLiteral("除数为零");
    default:
        return QStringLiteral("公式语法不正确");
    }
}

QString reasonOf(const mu::ParserError& error, const Translation& formula)
{
    const QString text = textOfError(error.GetCode());
    const int at = static_cast<int>(error.GetPos());
    return at >= 0 && at < formula.positions.size() ? text + FormulaLexer::place(formula.positions.at(at)) : text;
}

/// A parser that knows the arithmetic of price formulas and nothing of what the library offers beyond.
void prepare(mu::Parser& parser, std::vector<double>& values)
{
    parser.ClearConst();
    parser.ClearFun();
    parser.DefineFun("max", larger);
    parser.DefineFun("min", smaller);
    for (size_t i = 0; i < values.size(); ++i)
        parser.DefineVar(variable(static_cast<int>(i)), &values[i]);
}

// The library reports its refusals by exception; none leaves this function.
PriceFormula::Result run(const Translation& formula, std::vector<double> values)
{
    PriceFormula::Result result;
    try {
        mu::Parser parser;
        prepare(parser, values);
        parser.SetExpr(formula.text);
        result.price = parser.Eval();
        if (parser.GetNumResults() != 1)
            result.reason = QStringLiteral("逗号只能用于函数的参数之间");
    } catch (const mu::ParserError& error) {
        result.reason = reasonOf(error, formula);
    }
    return result;
}

QString missingValue(const QVector<Token>& tokens, const QHash<QString, double>& values)
{
    for (const Token& token : tokens) {
        if (token.kind == Kind::Item && !values.contains(token.text))
            return QStringLiteral("该证券没有“%1”的数据%2").arg(token.text, FormulaLexer::place(token.position));
    }
    return QString();
}

FormulaLexer::Result read(const QString& formula, const QStringList& names)
{
    if (formula.trimmed().isEmpty())
        return { {}, QStringLiteral("公式为空") };
    if (formula.size() > PriceFormula::maximumLength)
        return { {}, QStringLiteral("公式超过%1个字符").arg(PriceFormula::maximumLength) };
    FormulaLexer::Result result = FormulaLexer::tokens(formula, names);
    if (result.reason.isEmpty())
        result.reason = depthReason(result.tokens);
    return result;
}

QString priceReason(double price)
{
    if (!std::isfinite(price))
        return QStringLiteral("公式的结果不是有限的数");
    return price > 0 ? QString() : QStringLiteral("公式的结果不大于零");
}

std::vector<double> orderedValues(const QStringList& names, const QHash<QString, double>& values, double absent)
{
    std::vector<double> ordered;
    for (const QString& name : names)
        ordered.push_back(values.value(name, absent));
    return ordered;
}

} // namespace

QString PriceFormula::check(const QString& formula, const QStringList& names)
{
    const FormulaLexer::Result lexed = read(formula, names);
    if (!lexed.reason.isEmpty())
        return lexed.reason;
    return run(translate(lexed.tokens, names), orderedValues(names, {}, 1.0)).reason;
}

PriceFormula::Result PriceFormula::evaluate(
    const QString& formula, const QStringList& names, const QHash<QString, double>& values)
{
    Result result;
    const FormulaLexer::Result lexed = read(formula, names);
    result.reason = lexed.reason;
    if (result.reason.isEmpty())
        result.reason = missingValue(lexed.tokens, values);
    if (!result.reason.isEmpty())
        return result;
    result = run(translate(lexed.tokens, names), orderedValues(names, values, 0.0));
    if (result.reason.isEmpty())
        result.reason = priceReason(result.price);
    if (!result.reason.isEmpty())
        result.price = 0;
    return result;
}
