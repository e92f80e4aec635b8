#include "StrategyFile.h"
#include "StrategyReader.h"

#include <QFile>
#include <QFileInfo>

namespace {

StrategyFileContent refused(const QString& name, const QString& reason)
{
    return { {}, { name, 0, reason } };
}

} // namespace

StrategyFileContent StrategyFile::read(const QString& path)
{
    const QString name = QFileInfo(path).fileName();
    // Only plain files: opening a pipe would wait for its writer.
    if (!QFileInfo(path).isFile())
        return refused(name, QStringLiteral("文件不存在或不是普通文件"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return refused(name, QStringLiteral("文件无法打开"));
    return read(file, name);
}

StrategyFileContent StrategyFile::read(QIODevice& device, const QString& name)
{
    const QByteArray bytes = device.read(MAX_SIZE + 1);
    if (bytes.size() > MAX_SIZE)
        return refused(name, QStringLiteral("文件超过%1字节").arg(MAX_SIZE));
    return StrategyReader(bytes, name).read();
}
