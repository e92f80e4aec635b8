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
/// An object belongs to the thread that opened it; a worker thread opens the same file with an object of its own.
class Database {
public:
    Database();
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Opens the file, creating it and its folder when absent and migrating an older schema in one transaction.
    /// A newer schema, a damaged file and a file of another program are refused and left as they are.
    Status open(const QString& fileName);
    void close();
    bool isOpen() const;
    /// The opened file, empty while closed.
    QString fileName() const;

    /// The connection as `QSqlDriver::handle` hands it out; invalid while closed.
    QVariant handle() const;

    /// Runs `work` in one write transaction: commits when it succeeds, else undoes everything and returns its status.
    /// Called within another `transaction`, it joins that one.
    Status transaction(const std::function<Status()>& work);
    /// Runs one statement with positional values. `isActive()` of the result tells success.
    /// A null text is bound as an empty one; an invalid `QVariant` as NULL.
    QSqlQuery query(const QString& statement, const QVariantList& values = {});
    /// As `query`, for statements without a result.
    Status execute(const QString& statement, const QVariantList& values = {});
    /// A statement prepared once to be run many times; see `executePrepared`.
    QSqlQuery prepare(const QString& statement);
    static Status executePrepared(QSqlQuery& statement, const QVariantList& values);
    /// Prepares the write-ahead log for the next transaction: starts it, and after many transactions checkpoints it
    /// first. To be called while the user is idle; a file that is busy or cannot be written stays as it is.
    void prepareWal();
    /// Change token: equal tokens mean equal contents. It changes with every change by this connection and with every
    /// commit of another one. Empty within a transaction, and if unavailable.
    QString changeToken();
    /// Whether `query` ran.
    static Status statusOf(const QSqlQuery& query);
    /// What an error with SQLite's code means; one without is that of a closed database.
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
    QSqlQuery m_dataVersion; ///< prepared when it is first asked
    bool m_inTransaction = false;
    int m_committed = 0; ///< transactions since this connection started the log
};
