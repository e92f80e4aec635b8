#include "ClosureFiles.h"

#include "ErrorText.h"
#include "TradeCalendar.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>

namespace {

const QString FolderName = QStringLiteral("plandesk/calendar");

QDir userFolder()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)).filePath(FolderName);
}

QString userFile(const QString& name)
{
    return userFolder().filePath(name + QStringLiteral(".csv"));
}

Status store(const QByteArray& csv, const QString& path)
{
    QSaveFile file(path);
    if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QIODevice::WriteOnly) || file.write(csv) != csv.size()
        || !file.commit())
        return { Error::FileNotWritten, { path } };
    return {};
}

struct Loaded {
    TradeCalendar calendar = TradeCalendar::builtIn();
    Status status;
    int version = 0;
};

Status add(const QString& file, TradeCalendar& calendar)
{
    const Result<QByteArray> csv = ClosureFiles::read(file);
    if (!csv)
        return csv.status();
    const Status added = calendar.add(*csv);
    return added ? added : Status(Error::ClosureFileUnreadable, { file }, added);
}

Loaded readAll(int version)
{
    Loaded read;
    read.version = version;
    const QStringList files = ClosureFiles::present();
    for (const QString& file : files) {
        const Status status = add(file, read.calendar);
        if (status)
            continue;
        qWarning().noquote() << "ClosureFiles::calendar" << errorText(status);
        if (read.status)
            read.status = status;
    }
    return read;
}

Loaded& loaded()
{
    static Loaded present = readAll(0);
    return present;
}

} // namespace

QStringList ClosureFiles::present()
{
    QStringList folders =
        QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, FolderName, QStandardPaths::LocateDirectory);
    // The user's folder comes first, and must apply last.
    std::reverse(folders.begin(), folders.end());
    QStringList files;
    for (const QString& folder : qAsConst(folders)) {
        const QDir directory(folder);
        const QStringList names = directory.entryList({ QStringLiteral("*.csv") }, QDir::Files, QDir::Name);
        for (const QString& name : names)
            files << directory.filePath(name);
    }
    return files;
}

Result<QByteArray> ClosureFiles::read(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile())
        return Status(Error::ClosureFileUnreadable, { path }, Error::NotAFile);
    if (!file.open(QIODevice::ReadOnly))
        return Status(Error::ClosureFileUnreadable, { path }, Error::FileNotOpened);
    const QByteArray csv = file.read(MaxSize + 1);
    if (csv.size() > MaxSize)
        return Status(Error::ClosureFileUnreadable, { path }, { Error::FileTooLarge, { QString::number(MaxSize) } });
    return csv;
}

const TradeCalendar& ClosureFiles::calendar()
{
    return loaded().calendar;
}

Status ClosureFiles::status()
{
    return loaded().status;
}

int ClosureFiles::version()
{
    return loaded().version;
}

void ClosureFiles::reload()
{
    loaded() = readAll(loaded().version + 1);
}

Result<QDate> ClosureFiles::install(const QString& path)
{
    const Result<QByteArray> csv = read(path);
    if (!csv)
        return csv.status();
    const Result<QDate> last = installText(*csv, QFileInfo(path).completeBaseName());
    const bool isRefused = !last && last.status().error() != Error::FileNotWritten;
    return isRefused ? Result<QDate>(Status(Error::ClosureFileUnreadable, { path }, last.status())) : last;
}

Result<QDate> ClosureFiles::installText(const QByteArray& csv, const QString& name)
{
    TradeCalendar extended = calendar();
    if (Status status = extended.add(csv); !status)
        return status;
    if (Status status = store(csv, userFile(name)); !status)
        return status;
    return extended.lastKnownDay();
}
