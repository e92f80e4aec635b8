#include "FormulaCompletion.h"

namespace FormulaCompletion {

namespace {

bool isNamePart(QChar c)
{
    return c.isLetterOrNumber() || c == QLatin1Char('_');
}

int wordStart(const QString& formula, int cursor)
{
    int start = cursor;
    while (start > 0 && isNamePart(formula.at(start - 1)))
        --start;
    return start;
}

} // namespace

QString tokenBefore(const QString& formula, int cursor)
{
    const int start = wordStart(formula, cursor);
    if (start == cursor || formula.at(start).isNumber())
        return {};
    // Digits after a decimal point belong to a number.
    if (start > 0 && formula.at(start - 1) == QLatin1Char('.'))
        return {};
    return formula.mid(start, cursor - start);
}

bool mayBeginAt(const QString& formula, int cursor)
{
    const QString before = formula.left(cursor).trimmed();
    return before.isEmpty() || QStringLiteral("+-*/(,（，").contains(before.back());
}

QStringList matches(const QString& token, const QStringList& offers)
{
    QStringList first;
    QStringList later;
    for (const QString& offer : offers) {
        if (offer.startsWith(token, Qt::CaseInsensitive))
            first.append(offer);
        else if (offer.contains(token, Qt::CaseInsensitive))
            later.append(offer);
    }
    return first + later;
}

Edited inserted(const QString& formula, int cursor, const QString& offer)
{
    const int start = cursor - tokenBefore(formula, cursor).size();
    const int bracket = offer.indexOf(QLatin1Char('('));
    const int typed = bracket < 0 ? int(offer.size()) : bracket + 1;
    return { formula.left(start) + offer + formula.mid(cursor), start + typed };
}

} // namespace FormulaCompletion
