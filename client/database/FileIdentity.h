#pragma once

#include "Status.h"

#include <QByteArray>
#include <QString>
#include <QVector>

struct sqlite3;

/// The files of an open database: the database, its write-ahead log and the log's index. SQLite keeps them open, so a
/// file that was deleted or exchanged is still read and written, but nobody else ever sees it.
class FileIdentity {
public:
    /// Remembers the files of a connection that has read its database. Fails like `check`. Call it again after a change
    /// of the schema.
    Status remember(sqlite3* connection, const QString& fileName);
    void forget();
    /// Fails if a name leads to another file or to none, if a file has a second name, or if another program has copied
    /// a backup or an older state into the database file.
    Status check();
    /// Like `check`, for a connection to the same file that has not been remembered. Succeeds if nothing is remembered.
    Status checkOther(sqlite3* connection) const;
    /// Fails if a name leads to another file or to none, or if a file has a second name.
    Status checkNames() const;

private:
    /// Fields of the database file without its log. Clients never decrease them.
    struct Header {
        quint32 changes = 0;
        quint32 pages = 0;
        quint32 schema = 0;
    };
    struct File {
        QByteArray name;
        quint64 device = 0;
        quint64 inode = 0;
    };

    bool areFilesSame() const;
    Status checkHeader();
    Status readHeader(Header& header) const;

    QVector<File> m_files;
    sqlite3* m_connection = nullptr; ///< null before `remember`
    Header m_header;
    quint32 m_schema = 0; ///< the schema's version that the connection reads, maybe from the log
};
