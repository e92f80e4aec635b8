#include "Skins.h"

#include <QDebug>
#include <QFile>

QStringList skinNames()
{
    return { QStringLiteral("light"), QStringLiteral("dark") };
}

QString skinSheet(const QString& name)
{
    QFile sheet(QStringLiteral(":/skins/%1.qss").arg(name));
    if (!skinNames().contains(name) || !sheet.open(QIODevice::ReadOnly | QIODevice::Text)) {
        qWarning().noquote() << "skinSheet: there is no skin" << name;
        return {};
    }
    return QString::fromUtf8(sheet.readAll());
}
