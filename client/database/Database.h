#pragma once

#include "FileIdentity.h"
#include "LockWaits.h"
#include "Status.h"

#include <QHash>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <memory>

struct Migration;
struct Obstacle;
struct sqlite3;

/// One connection to the client's SQLite file.
///
/// An object belongs to the thread that opened it; a worker thread opens the same file with another object.
class Database {
public:
    /// Called with each row of a statement.
    using TakeRow = std::function<void(const QSqlQuery& row)>;

    Database();
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Opens the file. Creates it and its folder if absent, and migrates an older schema in one transaction. Refuses a
    /// newer schema, a file of another program and one whose schema is damaged, and leaves them unchanged. Only a file
    /// that is migrated is read as a whole; see `checkPages`.
    Status open(const QString& fileName);
    void close();
    bool isOpen() const;
    /// The opened file, empty while closed.
    QString fileName() const;
    /// Fails if the file was deleted, exchanged, moved or linked. The connection still reads it then.
    Status checkFile() { return m_files.check(); }
    /// SQLite's connection; null while closed.
    sqlite3* connection() const;

    /// Runs `work` in one write transaction. Commits if it succeeds, otherwise rolls back and returns its status. The
    /// first failure within a transaction, also of a statement whose status `work` drops, is the transaction's result;
    /// no later statement runs. A nested `transaction` joins the outer one. Nothing is written once the file was
    /// deleted, exchanged, moved or linked.
    Status transaction(const std::function<Status()>& work);

    /// True if the last transaction failed in its COMMIT: a disk that fails then may have stored it all the same.
    bool commitFailed() const { return m_commitFailed; }

    /// Statements with positional values. A null text is bound as an empty one; an invalid `QVariant` as NULL.

    /// Runs a statement without a result, in a transaction of its own unless one is running.
    Status execute(const QString& statement, const QVariantList& values = {});
    /// Like `execute`; returns the number of changed rows.
    Result<int> change(const QString& statement, const QVariantList& values);
    /// Inserts a row and returns the number that it got.
    Result<qint64> insert(const QString& statement, const QVariantList& values);
    /// Reads all rows. If it fails, rows that were already taken must be dropped.
    Status read(const QString& statement, const QVariantList& values, const TakeRow& take);
    /// The first column of the first row; invalid if there is no row.
    Result<QVariant> value(const QString& statement, const QVariantList& values = {});
    /// The first column of all rows.
    Result<QStringList> texts(const QString& statement, const QVariantList& values);
    /// Prepares a statement without a result to be run many times by `executePrepared`, within one transaction.
    Status prepare(const QString& statement, QSqlQuery& prepared);
    Status executePrepared(QSqlQuery& prepared, const QVariantList& values);
    /// Runs a statement outside of any transaction, for example a PRAGMA.
    Status configure(const QString& statement);

    /// Notes the result of a statement that ran on `connection` and returns it, or why the transaction has ended.
    Status note(const Status& status);

    /// Reads the whole file, which takes seconds if it is large. Fails if it is damaged. `sqlite3_interrupt` ends it.
    Status checkPages();

    /// Prepares the write-ahead log for the next transaction: starts it, and after many transactions checkpoints it
    /// first. Call it while the user is idle; a busy or read-only file stays unchanged.
    void prepareWal();
    /// Change token: equal tokens mean equal contents. It changes with every change by this connection and every commit
    /// of another one. Empty within a transaction, or if unavailable.
    QString changeToken();

private:
    /// How long a statement waits for another client's transaction, in milliseconds.
    static constexpr int BusyTimeout = 800;

    Status openFile(const QString& fileName);
    Status connect(const QString& fileName);
    Status inspect();
    Status checkSchema();
    Status checkVersion(int tables, int version, int application);
    Status prepareConnection();
    Status startWalMode();
    Status applyMigrations();
    Status migrate(const Migration& migration);
    Status refuse(const Obstacle& obstacle);
    Status begin();
    Status finish(const Status& worked);
    void rollBack();
    Status run(
        const QString& statement, const QVariantList& values, const std::function<Status(QSqlQuery& query)>& use);
    Status explained(const Status& failure);
    Result<int> number(const QString& statement);
    bool isIdle() const { return isOpen() && !m_inTransaction; }
    bool checkpoint();
    Status startWal();

    const QString m_connectionName;
    QSqlDatabase m_connection;
    FileIdentity m_files;
    LockWaits m_waits;
    QHash<QString, std::shared_ptr<QSqlQuery>> m_prepared; ///< statements that do not run, by their text
    bool m_inTransaction = false;
    bool m_commitFailed = false;
    Status m_failure;    ///< the first one of the running transaction
    int m_committed = 0; ///< transactions since this connection started the log
};
