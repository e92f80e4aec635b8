#include "SpecialCharacters.h"

#include <QDebug>
#include <QRegularExpression>

bool isContainsSpecialChar(const QString& text, QString& found)
{
    // Full-width punctuation is no special character: formulas are written with Chinese input methods, and plans that
    // hold it are in use. A character that could not be decoded (U+FFFD) is one.
    static const QRegularExpression special(QStringLiteral("[`~!@#$&=|{}':'\\[\\]<>?;\uFFFD]|[\\%]+\\d"));
    const QRegularExpressionMatch match = special.match(text);
    if (!match.hasMatch())
        return false;
    found = match.captured();
    qDebug() << "AutoParamSetting::isContainsSpecialChar" << match.capturedStart() << match.capturedEnd();
    return true;
}
