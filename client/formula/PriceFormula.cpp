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

/// The formula as the parser reads it: names in ASCII letters, and the position in the formula of each of its
/// characters.
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
        // The space keeps "1 2" from turning into 12; the parser accepts no space after the name of a function.
        result.append(token.kind == Kind::Function ? text : text + " ", token.position);
    }
    return result;
}

Status checkDepth(const QVector<Token>& tokens)
{
    int depth = 0;
    for (const Token& token : tokens) {
        depth += token.kind == Kind::Open ? 1 : 0;
        depth -= token.kind == Kind::Close ? 1 : 0;
        if (depth > PriceFormula::MaximumDepth) {
            const QString most = QString::number(PriceFormula::MaximumDepth);
            return FormulaLexer::errorAt(token.position, { Error::FormulaTooDeep, { most } });
        }
    }
    return {};
}

Error errorOf(mu::EErrorCodes code)
{
    switch (code) {
    case mu::ecUNEXPECTED_EOF:
        return Error::FormulaIncomplete;
    case mu::ecMISSING_PARENS:
        return Error::MissingParenthesis;
    case mu::ecUNEXPECTED_PARENS:
        return Error::MisplacedParenthesis;
    case mu::ecTOO_MANY_PARAMS:
        return Error::TooManyArguments;
    case mu::ecTOO_FEW_PARAMS:
        return Error::TooFewArguments;
    case mu::ecUNEXPECTED_ARG_SEP:
    case mu::ecUNEXPECTED_ARG:
        return Error::MisplacedComma;
    case mu::ecDIV_BY_ZERO:
        return Error::DivisionByZero;
    default:
        return Error::FormulaSyntax;
    }
}

Status statusOf(const mu::ParserError& error, const Translation& formula)
{
    const Status status = errorOf(error.GetCode());
    const int at = static_cast<int>(error.GetPos());
    // The library reports no position for what is missing at the end.
    const bool hasPlace = at >= 0 && at < formula.positions.size();
    return hasPlace ? FormulaLexer::errorAt(formula.positions.at(at), status) : status;
}

/// Restricts the parser to the arithmetic of price formulas.
void prepare(mu::Parser& parser, std::vector<double>& values)
{
    parser.ClearConst();
    parser.ClearFun();
    parser.DefineFun("max", larger);
    parser.DefineFun("min", smaller);
    for (size_t i = 0; i < values.size(); ++i)
        parser.DefineVar(variable(static_cast<int>(i)), &values[i]);
}

// The library throws its errors; this function returns them.
Result<double> run(const Translation& formula, std::vector<double> values)
{
    try {
        mu::Parser parser;
        prepare(parser, values);
        parser.SetExpr(formula.text);
        const double result = parser.Eval();
        if (parser.GetNumResults() != 1)
            return Status(Error::CommaOutsideFunction);
        return result;
    } catch (const mu::ParserError& error) {
        return statusOf(error, formula);
    }
}

Status checkValues(const QVector<Token>& tokens, const QHash<QString, double>& values)
{
    for (const Token& token : tokens) {
        if (token.kind == Kind::Item && !values.contains(token.text))
            return FormulaLexer::errorAt(token.position, { Error::PriceNotAvailable, { token.text } });
    }
    return {};
}

Result<QVector<Token>> read(const QString& formula, const QStringList& names)
{
    if (formula.trimmed().isEmpty())
        return Status(Error::FormulaEmpty);
    if (formula.size() > PriceFormula::MaximumLength)
        return Status(Error::FormulaTooLong, { QString::number(PriceFormula::MaximumLength) });
    Result<QVector<Token>> tokens = FormulaLexer::tokens(formula, names);
    if (!tokens)
        return tokens;
    if (Status status = checkDepth(*tokens); !status)
        return status;
    return tokens;
}

Status checkPrice(double price)
{
    if (!std::isfinite(price))
        return Error::PriceNotFinite;
    return price > 0 ? Status() : Error::PriceNotPositive;
}

std::vector<double> orderedValues(const QStringList& names, const QHash<QString, double>& values, double absent)
{
    std::vector<double> ordered;
    for (const QString& name : names)
        ordered.push_back(values.value(name, absent));
    return ordered;
}

} // namespace

Status PriceFormula::check(const QString& formula, const QStringList& names)
{
    const Result<QVector<Token>> tokens = read(formula, names);
    if (!tokens)
        return tokens.status();
    return run(translate(*tokens, names), orderedValues(names, {}, 1.0)).status();
}

Result<double> PriceFormula::evaluate(
    const QString& formula, const QStringList& names, const QHash<QString, double>& values)
{
    const Result<QVector<Token>> tokens = read(formula, names);
    if (!tokens)
        return tokens.status();
    if (Status status = checkValues(*tokens, values); !status)
        return status;
    Result<double> price = run(translate(*tokens, names), orderedValues(names, values, 0.0));
    if (!price)
        return price;
    if (Status status = checkPrice(*price); !status)
        return status;
    return price;
}
