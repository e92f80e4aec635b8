#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

struct sqlite3;

/// A database file through a plain connection, without the rules of `Database`.
class RawFile {
public:
    explicit RawFile(const QString& fileName);
    ~RawFile();
    RawFile(const RawFile&) = delete;
    RawFile& operator=(const RawFile&) = delete;

    sqlite3* connection() const { return m_connection; }
    /// Runs statements; the values are those of placeholders. Returns SQLite's code of the first failure, SQLITE_OK if
    /// there is none.
    int execute(const QByteArray& statements, const QStringList& values = {});
    /// Like `execute`, for statements that should succeed: true if they do, otherwise logs the failure.
    bool run(const QString& statements, const QStringList& values = {});
    /// The first column of the first row; null if there is no row.
    QString value(const QString& query);

private:
    sqlite3* m_connection = nullptr;
};
