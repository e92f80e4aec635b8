#include "StrategyFile.h"

#include "StrategyMarkup.h"
#include "StrategyReader.h"

#include <QFile>
#include <QFileInfo>

namespace {

Status unreadable(const QString& name, const Status& cause)
{
    return { Error::StrategyFileUnreadable, { name }, cause };
}

} // namespace

Result<QList<StrategyDefinition>> StrategyFile::read(const QString& path)
{
    const QString name = QFileInfo(path).fileName();
    // Only regular files: opening a pipe would block until something writes to it.
    if (!QFileInfo(path).isFile())
        return unreadable(name, Error::NotAFile);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return unreadable(name, Error::FileNotOpened);
    return read(file, name);
}

Result<QList<StrategyDefinition>> StrategyFile::read(QIODevice& device, const QString& name)
{
    const QByteArray bytes = device.read(MaxSize + 1);
    if (bytes.size() > MaxSize)
        return unreadable(name, { Error::FileTooLarge, { QString::number(MaxSize) } });
    if (Status status = StrategyMarkup::check(bytes); !status)
        return Status(Error::StrategyFileRefused, { name }, status);
    return StrategyReader(bytes, name).read();
}
