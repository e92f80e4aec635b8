#include "Console.h"

#include <QTextStream>

QString oneLine(QString text)
{
    for (QChar& c : text) {
        if (c.category() == QChar::Other_Control && c != QLatin1Char('\n'))
            c = QChar::ReplacementCharacter;
        else if (c == QLatin1Char('\n'))
            c = QLatin1Char(' ');
    }
    return text;
}

void printLine(FILE* stream, const QString& text)
{
    QTextStream(stream) << text.trimmed() << QLatin1Char('\n');
}
