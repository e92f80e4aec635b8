#include "InterfaceList.h"

#include <QTextStream>

/// Prints the binary interface of the editor's library.
int main()
{
    const QStringList lines = interfaceOfLibrary(QStringLiteral(NM_PROGRAM), QStringLiteral(LIBRARY_FILE));
    QTextStream out(stdout);
    for (const QString& line : lines)
        out << line << '\n';
    return lines.isEmpty() ? 1 : 0;
}
