#include "InterfaceList.h"

#include <QTextStream>

/// Prints what a program that was linked with the editor's library relies on.
int main()
{
    const QStringList lines = interfaceOfLibrary(QStringLiteral(NM_PROGRAM), QStringLiteral(LIBRARY_FILE));
    QTextStream out(stdout);
    for (const QString& line : lines)
        out << line << '\n';
    return lines.isEmpty() ? 1 : 0;
}
