#include "FileIdentity.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>
#include <sys/stat.h>

#include <algorithm>

namespace {

/// False if there is no such file.
bool readState(const QString& fileName, struct stat& state)
{
    return ::stat(QFile::encodeName(fileName).constData(), &state) == 0;
}

/// Whether the database's name still leads to the file that SQLite opened.
bool isUnmoved(sqlite3* connection)
{
    int moved = 0;
    const int code = sqlite3_file_control(connection, "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    return code == SQLITE_OK && moved == 0;
}

} // namespace

// The names are read first: a file that is exchanged in between is not the opened one.
Status FileIdentity::remember(sqlite3* connection, const QString& fileName)
{
    forget();
    const QString target = QFileInfo(fileName).canonicalFilePath();
    // A file that cannot be written may have no log.
    for (const QString& name : { fileName, target + QStringLiteral("-wal"), target + QStringLiteral("-shm") }) {
        struct stat state { };
        if (readState(name, state))
            m_files.append({ name, state.st_dev, state.st_ino });
    }
    return isUnmoved(connection) ? check() : Error::DatabaseFileChanged;
}

Status FileIdentity::check() const
{
    const auto isSame = [](const File& file) {
        struct stat state { };
        return readState(file.name, state) && state.st_dev == file.device && state.st_ino == file.inode
            && state.st_nlink == 1;
    };
    const bool same = std::all_of(m_files.cbegin(), m_files.cend(), isSame);
    return same ? Status() : Error::DatabaseFileChanged;
}
