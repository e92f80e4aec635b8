#pragma once

#include "Administration.h"
#include "MovedTables.h"

/// Moves the contents of a file to a server's database: all rows of all tables with their numbers, versions, times and
/// history. New numbers continue after the highest one that the file has given.
class FileMove {
public:
    /// Called from time to time with what has been done.
    using Progress = std::function<void(const QString& text)>;

    /// `administration`: open on the server.
    FileMove(Administration& administration, const Progress& progress);

    /// Moves the contents in one transaction, which is committed only if every row was read back from the server and is
    /// the same. Rows that are all on the server are only compared. Fails if the server has other contents. The file is
    /// only read: one state of it, while clients may be running. Returns a line for what was done, and one for each
    /// user who still needs a login.
    Result<QStringList> run(const QString& file);

private:
    Result<QStringList> moveFrom(Database& file);
    Result<QStringList> report(const QString& done);
    Status openCopy(const QString& file, Database& copy) const;
    /// Moves or only compares the rows; `done` says which, with a place for their number.
    Status move(Database& file, QString& done);
    /// 1 if anything was written to the database since it was set up, otherwise 0.
    Result<int> isWritten();
    Status writeAll(Database& file);
    Status write(Database& file, const MovedTable& table);
    Status continueNumbers(Database& file, const QString& table, const QString& column);
    Status compareAll(Database& file, Error difference);
    Status compare(Database& file, const MovedTable& table, Error difference);
    void count(const QString& action, const MovedTable& table, qint64 rows);

    Administration& m_administration;
    Database& m_server;
    const Progress m_progress;
    QVector<MovedTable> m_tables;
    qint64 m_rows = 0;        ///< compared ones
    bool m_isWritten = false; ///< the contents were on the server before
};
