#include "InterfaceList.h"

#include "AutoParamSetting.h"

#include <QMetaMethod>
#include <QProcess>

namespace {

/// Lines of `nm`: address, size, type and name.
QStringList symbolLines(const QString& nm, const QString& library)
{
    QProcess process;
    process.start(nm,
        { QStringLiteral("-D"), QStringLiteral("-S"), QStringLiteral("-C"), QStringLiteral("--defined-only"),
            library });
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return {};
    return QString::fromUtf8(process.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QString symbolLine(const QString& line)
{
    const QString name = line.section(QLatin1Char(' '), 3);
    if (!name.startsWith(QLatin1String("vtable for")))
        return QStringLiteral("symbol ") + name;
    const qlonglong size = line.section(QLatin1Char(' '), 1, 1).toLongLong(nullptr, 16);
    return QStringLiteral("symbol %1, %2 bytes").arg(name, QString::number(size));
}

QStringList methodLines()
{
    const QMetaObject& meta = AutoParamSetting::staticMetaObject;
    QStringList lines;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        lines.append(
            QStringLiteral("%1 %2: %3")
                .arg(method.methodType() == QMetaMethod::Signal ? QStringLiteral("signal") : QStringLiteral("slot"),
                    QString::number(i - meta.methodOffset()), QString::fromLatin1(method.methodSignature())));
    }
    return lines;
}

} // namespace

QStringList interfaceOfLibrary(const QString& nm, const QString& library)
{
    const QStringList lines = symbolLines(nm, library);
    QStringList symbols;
    for (const QString& line : lines)
        symbols.append(symbolLine(line));
    if (symbols.isEmpty())
        return {};
    symbols.sort();
    return QStringList(QStringLiteral("class AutoParamSetting, %1 bytes").arg(sizeof(AutoParamSetting))) + methodLines()
        + symbols;
}
