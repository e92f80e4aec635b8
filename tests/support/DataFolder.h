#pragma once

#include "ClosureFiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

/// While it exists, the user's data are in a new folder. The destructor reads the closures of the former one.
class DataFolder {
public:
    DataFolder() { qputenv("XDG_DATA_HOME", QFile::encodeName(m_folder.path())); }
    ~DataFolder()
    {
        if (m_former.isNull())
            qunsetenv("XDG_DATA_HOME");
        else
            qputenv("XDG_DATA_HOME", m_former);
        ClosureFiles::reload();
    }
    DataFolder(const DataFolder&) = delete;
    DataFolder& operator=(const DataFolder&) = delete;

    QString path() const { return m_folder.path(); }

    /// Writes a file of closures and reads them all again.
    bool addClosures(const QByteArray& text) const
    {
        const QString calendar = m_folder.filePath(QStringLiteral("plandesk/calendar"));
        QFile file(calendar + QStringLiteral("/test.csv"));
        const bool isWritten = QDir().mkpath(calendar) && file.open(QIODevice::WriteOnly) && file.write(text) > 0;
        file.close();
        ClosureFiles::reload();
        return isWritten;
    }

private:
    const QByteArray m_former = qgetenv("XDG_DATA_HOME");
    const QTemporaryDir m_folder;
};
