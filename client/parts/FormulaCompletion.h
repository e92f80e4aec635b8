#pragma once

#include <QString>
#include <QStringList>

/// Completion of names and functions in a formula, without any widget.
namespace FormulaCompletion {

/// The name that is being typed before the cursor; empty when none is, as after a number, an operator or a bracket.
QString tokenBefore(const QString& formula, int cursor);

/// Whether a name may begin at the cursor: at the start, or after an operator, a comma or an opening bracket.
bool mayBeginAt(const QString& formula, int cursor);

/// Which of the offers fit what is being typed, those that begin with it first. Case is not told. An empty token fits
/// all.
QStringList fitting(const QString& token, const QStringList& offers);

/// A formula with the cursor in it.
struct Edited {
    QString formula;
    int cursor = 0;
};

/// Puts an offer in place of the token before the cursor. The cursor stands behind it, or for a function behind its
/// opening bracket.
Edited inserted(const QString& formula, int cursor, const QString& offer);

} // namespace FormulaCompletion
