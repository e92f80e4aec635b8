#include "PrivateFiles.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool flushHandle(const QString& path, int flags)
{
    const int handle = ::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC);
    if (handle < 0)
        return false;
    const bool done = ::fsync(handle) == 0;
    return ::close(handle) == 0 && done;
}

} // namespace

// The modes are given when the files are created, because others could open them before a later change.
bool PrivateFiles::makeFolder(const QString& path)
{
    const QFileInfo folder(path);
    if (folder.isDir())
        return true;
    if (!makeFolder(folder.absolutePath()))
        return false;
    return ::mkdir(QFile::encodeName(folder.absoluteFilePath()).constData(), S_IRWXU) == 0 || QFileInfo(path).isDir();
}

bool PrivateFiles::makeFile(const QString& path)
{
    const int handle =
        ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    return handle >= 0 && ::close(handle) == 0;
}

bool PrivateFiles::flush(const QString& path)
{
    return flushHandle(path, O_RDONLY) && flushHandle(QFileInfo(path).absolutePath(), O_RDONLY | O_DIRECTORY);
}
