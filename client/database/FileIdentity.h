#pragma once

#include "Status.h"

#include <QString>
#include <QVector>

struct sqlite3;

/// The files of an open database: the database, its write-ahead log and the log's index. SQLite keeps them open, so a
/// file that was deleted or exchanged is still read and written, but nobody else ever sees it.
class FileIdentity {
public:
    /// Remembers the files of a connection that has read its database. Fails like `check`.
    Status remember(sqlite3* connection, const QString& fileName);
    void forget() { m_files.clear(); }
    /// Fails if a name leads to another file or to none, or if a file has a second name.
    Status check() const;

private:
    struct File {
        QString name;
        quint64 device = 0;
        quint64 inode = 0;
    };

    QVector<File> m_files;
};
