#pragma once

#include "Status.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

#include <functional>

/// One connection to the client's SQLite file.
///
/// An object belongs to the thread that opened it; a worker thread opens the same file with another object.
class Database {
public:
    Database();
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Opens the file. Creates it and its folder if absent, and migrates an older schema in one transaction. Refuses a
    /// newer schema, a damaged file and a file of another program, and leaves them unchanged.
    Status open(const QString& fileName);
    void close();
    bool isOpen() const;
    /// The opened file, empty while closed.
    QString fileName() const;

    /// The connection from `QSqlDriver::handle`; invalid while closed.
    QVariant handle() const;

    /// Runs `work` in one write transaction. Commits if it succeeds, otherwise rolls back and returns its status. A
    /// nested `transaction` joins the outer one.
    Status transaction(const std::function<Status()>& work);
    /// Runs one statement with positional values. `isActive()` of the result is true on success. A null text is bound
    /// as an empty one; an invalid `QVariant` as NULL.
    QSqlQuery query(const QString& statement, const QVariantList& values = {});
    /// Like `query`, for statements without a result.
    Status execute(const QString& statement, const QVariantList& values = {});
    /// Prepares a statement to be run many times by `executePrepared`.
    QSqlQuery prepare(const QString& statement);
    static Status executePrepared(QSqlQuery& statement, const QVariantList& values);
    /// Prepares the write-ahead log for the next transaction: starts it, and after many transactions checkpoints it
    /// first. Call it while the user is idle; a busy or read-only file stays unchanged.
    void prepareWal();
    /// Change token: equal tokens mean equal contents. It changes with every change by this connection and every commit
    /// of another one. Empty within a transaction, or if unavailable.
    QString changeToken();
    /// Whether `query` ran.
    static Status statusOf(const QSqlQuery& query);
    /// The meaning of an error with SQLite's code; an error without a code comes from a closed database.
    static Status statusOf(const QSqlError& error);

private:
    Status openFile(const QString& fileName);
    Status connect(const QString& fileName);
    Status inspect();
    Status configure();
    Status migrate();
    Status applyMigrations();
    int number(const QString& statement);
    bool checkpoint();
    Status startWal();
    void setBusyTimeout(int milliseconds);

    const QString m_connectionName;
    QSqlDatabase m_connection;
    QSqlQuery m_dataVersion; ///< prepared on first use
    bool m_inTransaction = false;
    int m_committed = 0; ///< transactions since this connection started the log
};
