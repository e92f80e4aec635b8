#pragma once

#include <QString>
#include <QStringList>

/// Completion of names and functions in a formula, without any widget.
namespace FormulaCompletion {

/// The name before the cursor; empty if there is none, as after a number, an operator or a parenthesis.
QString tokenBefore(const QString& formula, int cursor);

/// Whether a name may begin at the cursor: at the start, or after an operator, a comma or an opening parenthesis.
bool mayBeginAt(const QString& formula, int cursor);

/// The offers that contain the token, those that begin with it first, case-insensitively. All offers for an empty
/// token.
QStringList matches(const QString& token, const QStringList& offers);

/// A formula with the cursor in it.
struct Edited {
    QString formula;
    int cursor = 0;
};

/// Replaces the token before the cursor by an offer. The cursor is then after it, or after the opening parenthesis of a
/// function.
Edited inserted(const QString& formula, int cursor, const QString& offer);

} // namespace FormulaCompletion
