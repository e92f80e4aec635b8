#include "AutoParamSetting.h"

#include <QTextStream>

/// Prints what it found in the library.
int main()
{
    QTextStream(stdout) << AutoParamSetting::staticMetaObject.className() << '\n';
    return 0;
}
