#pragma once

#include "Status.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// Splits a price formula into the tokens that are allowed; nothing else reaches the evaluation.
namespace FormulaLexer {

enum class Kind { Number, Item, Function, Operator, Open, Close, Comma };

struct Token {
    Kind kind;
    QString text;
    /// Position of the first character, from 0.
    int position;
};

/// The tokens of a formula, or an error at the first invalid one. `items`: names of prices that the formula may use.
Result<QVector<Token>> tokens(const QString& formula, const QStringList& items);
/// `error` with its position, from 0.
Status errorAt(int position, const Status& error);

} // namespace FormulaLexer
