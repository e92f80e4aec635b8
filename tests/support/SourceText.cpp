#include "SourceText.h"

#include <QFile>
#include <QRegularExpression>

QString textOf(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The file cannot be read: %s", qPrintable(fileName));
    return QString::fromUtf8(file.readAll());
}

QStringList allMatches(const QString& text, const QString& pattern)
{
    QStringList found;
    auto match = QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text);
    while (match.hasNext())
        found.append(match.next().captured(1));
    return found;
}
