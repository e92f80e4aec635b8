#pragma once

#include "Status.h"

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

/// The tokens of a formula, or the first thing in it that is no token. `items`: names of prices that the formula may
/// use.
Result<QVector<Token>> tokens(const QString& formula, const QStringList& items);
/// `error` at a position counted from 0.
Status errorAt(int position, const Status& error);

} // namespace FormulaLexer
