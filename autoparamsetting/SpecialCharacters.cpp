#include "SpecialCharacters.h"

#include <QDebug>
#include <QRegularExpression>

bool isContainsSpecialChar(const QString& text, QString& found)
{
    // Full-width punctuation is allowed: traders type formulas with Chinese input methods, and plans in use contain it.
    // The replacement character of failed decoding (U+FFFD) is not allowed.
    static const QRegularExpression special(QStringLiteral("[`~!@#$&=|{}':'\\[\\]<>?;\uFFFD]|[\\%]+\\d"));
    const QRegularExpressionMatch match = special.match(text);
    if (!match.hasMatch())
        return false;
    found = match.captured();
    qDebug() << "AutoParamSetting::isContainsSpecialChar" << match.capturedStart() << match.capturedEnd();
    return true;
}
