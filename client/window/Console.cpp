#include "Console.h"

#include <QTextStream>

void printLine(FILE* stream, const QString& text)
{
    QTextStream(stream) << text.trimmed() << QLatin1Char('\n');
}
