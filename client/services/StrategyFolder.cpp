#include "StrategyFolder.h"

#include "StrategyLibrary.h"
#include "StrategyQuery.h"

#include <QDir>
#include <QHash>
#include <QtConcurrent>

#include <algorithm>

namespace {

/// How often the folder is looked at.
constexpr int Interval = 2000;

using Entries = StrategyFolder::Entries;

Entries listFiles(const QString& path)
{
    Entries entries;
    const QFileInfoList files = QDir(path).entryInfoList({ QStringLiteral("*.xml") }, QDir::Files, QDir::Name);
    for (const QFileInfo& file : files)
        entries.append({ file.absoluteFilePath(), file.lastModified(), file.size(), {} });
    return entries;
}

bool isSame(const StrategyFolder::Entry& one, const StrategyFolder::Entry& other)
{
    return one.path == other.path && one.changed == other.changed && one.size == other.size;
}

/// The files of the folder. Those that are as they were are not read again.
Entries readFolder(const QString& path, const Entries& known)
{
    QHash<QString, int> positions;
    for (int i = 0; i < known.size(); ++i)
        positions.insert(known.at(i).path, i);
    Entries entries = listFiles(path);
    QVector<StrategyFolder::Entry*> unread;
    for (StrategyFolder::Entry& entry : entries) {
        const int position = positions.value(entry.path, -1);
        if (position >= 0 && isSame(entry, known.at(position)))
            entry.file = known.at(position).file;
        else
            unread.append(&entry);
    }
    QtConcurrent::blockingMap(
        unread, [](StrategyFolder::Entry* entry) { entry->file = StrategyFile::read(entry->path); });
    return entries;
}

} // namespace

StrategyFolder& StrategyFolder::instance()
{
    static StrategyFolder folder;
    return folder;
}

StrategyFolder::StrategyFolder()
{
    m_timer.setInterval(Interval);
    connect(&m_timer, &QTimer::timeout, this, &StrategyFolder::refresh);
    connect(&m_reading, &QFutureWatcher<Entries>::finished, this, &StrategyFolder::take);
}

void StrategyFolder::open(const QString& path)
{
    m_path = path.isEmpty() ? QString() : QDir(path).absolutePath();
    m_entries.clear();
    m_isRead = false;
    m_timer.start();
    refresh();
}

void StrategyFolder::refresh()
{
    if (m_reading.isRunning())
        return;
    m_readPath = m_path;
    if (m_path.isEmpty())
        m_timer.stop();
    const Entries known = m_entries;
    m_reading.setFuture(
        QtConcurrent::run([path = m_path, known] { return path.isEmpty() ? Entries() : readFolder(path, known); }));
}

void StrategyFolder::take()
{
    if (m_readPath != m_path)
        return refresh();
    const Entries entries = m_reading.result();
    const bool isSameFolder =
        std::equal(entries.cbegin(), entries.cend(), m_entries.cbegin(), m_entries.cend(), isSame);
    if (m_isRead && isSameFolder)
        return;
    m_isRead = true;
    m_entries = entries;
    m_files.clear();
    for (const Entry& entry : entries)
        m_files.append(entry.file);
    StrategyLibrary::instance().setFiles(m_files);
    StrategyQuery::start();
    Q_EMIT changed();
}
