#include "FileIdentity.h"

#include "SqliteStatus.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <sqlite3.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>

namespace {

constexpr int HeaderSize = 100;

/// False if there is no such file.
bool readState(const QByteArray& fileName, struct stat& state)
{
    return ::stat(fileName.constData(), &state) == 0;
}

/// Whether the database's name still leads to the file that SQLite opened.
bool isUnmoved(sqlite3* connection)
{
    int moved = 0;
    const int code = sqlite3_file_control(connection, "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    return code == SQLITE_OK && moved == 0;
}

quint32 field(const std::array<uchar, HeaderSize>& header, int position)
{
    return qFromBigEndian<quint32>(header.data() + position);
}

int takeNumber(void* number, int, char** values, char**)
{
    *static_cast<quint32*>(number) = QByteArray(values[0]).toUInt();
    return 0;
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
        const QByteArray encoded = QFile::encodeName(name);
        if (readState(encoded, state))
            m_files.append({ encoded, state.st_dev, state.st_ino });
    }
    if (!isUnmoved(connection) || !areFilesSame())
        return Error::DatabaseFileChanged;
    m_connection = connection;
    // The file's version is never newer than the one that is read after it.
    if (Status status = readHeader(m_header); !status)
        return status;
    const int code = sqlite3_exec(connection, "PRAGMA schema_version", takeNumber, &m_schema, nullptr);
    return code == SQLITE_OK ? Status() : SqliteStatus::of(code, QString::fromUtf8(sqlite3_errmsg(connection)));
}

void FileIdentity::forget()
{
    m_files.clear();
    m_connection = nullptr;
}

Status FileIdentity::check()
{
    const Status status = checkNames();
    return status && m_connection ? checkHeader() : status;
}

Status FileIdentity::checkOther(sqlite3* connection) const
{
    FileIdentity other = *this;
    other.m_connection = m_connection ? connection : nullptr;
    return other.check();
}

Status FileIdentity::checkNames() const
{
    return areFilesSame() ? Status() : Error::DatabaseFileChanged;
}

bool FileIdentity::areFilesSame() const
{
    const auto isSame = [](const File& file) {
        struct stat state { };
        return readState(file.name, state) && state.st_dev == file.device && state.st_ino == file.inode
            && state.st_nlink == 1;
    };
    return std::all_of(m_files.cbegin(), m_files.cend(), isSame);
}

// Only checkpoints write the file, and they bring newer pages. The schema of a backup has the next version.
Status FileIdentity::checkHeader()
{
    Header header;
    if (Status status = readHeader(header); !status)
        return status;
    if (header.changes < m_header.changes || header.pages < m_header.pages || header.schema > m_schema)
        return Error::DatabaseFileChanged;
    m_header = header;
    return {};
}

// Reads by SQLite's handle, because closing another handle of the file would release SQLite's locks.
Status FileIdentity::readHeader(Header& header) const
{
    sqlite3_file* file = nullptr;
    sqlite3_file_control(m_connection, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    std::array<uchar, HeaderSize> bytes{};
    const int code = file->pMethods->xRead(file, bytes.data(), HeaderSize, 0);
    if (code != SQLITE_OK && code != SQLITE_IOERR_SHORT_READ)
        return SqliteStatus::of(code, QString());
    header = { field(bytes, 24), field(bytes, 28), field(bytes, 40) };
    return {};
}
