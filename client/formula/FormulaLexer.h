#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// Cuts a price formula into what it may hold, so that nothing else reaches the evaluation.
namespace FormulaLexer {

enum class Kind { Number, Item, Function, Operator, Open, Close, Comma };

struct Token {
    Kind kind;
    QString text;
    /// Of the first character, counted from 0.
    int position;
};

struct Result {
    QVector<Token> tokens;
    /// Why the text is refused, empty when it is not.
    QString reason;
};

/// `items`: names of prices that the formula may use.
Result tokens(const QString& formula, const QStringList& items);
/// "（第n个字符）" for a position counted from 0.
QString place(int position);

} // namespace FormulaLexer
