#include "Appearance.h"

#include <QDebug>
#include <QFile>
#include <QFontInfo>
#include <QFontMetrics>
#include <QSettings>

namespace {

constexpr int SmallestText = 9;
const QString ChosenSkin = QStringLiteral("skin");

QSettings settings()
{
    return QSettings(QStringLiteral("plandesk"), QStringLiteral("plandesk"));
}

} // namespace

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

QString rememberedSkin()
{
    const QString name = settings().value(ChosenSkin).toString();
    return skinNames().contains(name) ? name : skinNames().constFirst();
}

void rememberSkin(const QString& name)
{
    settings().setValue(ChosenSkin, name);
}

QFont fittedFont(QFont font, const QString& text, int room)
{
    int size = QFontInfo(font).pixelSize();
    while (size > SmallestText && QFontMetrics(font).horizontalAdvance(text) > room)
        font.setPixelSize(--size);
    return font;
}
