#pragma once

#include "FileIdentity.h"
#include "Status.h"

#include <QElapsedTimer>
#include <QHash>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <memory>

class DatabaseEngine;
class EngineRows;
struct SqlDialect;

/// One connection to the client's database: an SQLite file, or a database on a PostgreSQL server.
///
/// An object belongs to the thread that opened it; a worker thread opens the same database with another object.
class Database {
public:
    /// Called with each row of a statement.
    using TakeRow = std::function<void(const QSqlQuery& row)>;

    Database();
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Opens a file or the database of a server, see `ServerLocation`.
    ///
    /// Creates a file and its folder if absent, and migrates an older schema in one transaction. Refuses a newer
    /// schema, a file of another program and one whose schema is damaged, and leaves them unchanged. Only a file that
    /// is migrated is read as a whole; see `checkPages`.
    ///
    /// A database on a server must have been set up; an older or newer schema is refused.
    Status open(const QString& location);
    /// Like `open`, and opens the same file as another connection, see `file`. If the location leads to another file
    /// or to none, fails and leaves it unchanged.
    Status open(const QString& location, const FileIdentity& file);
    /// Like `open`. Creates or migrates the tables in a server's database, which the role then owns, and leaves it
    /// open.
    Status setUp(const QString& location);
    /// Called before `open`, lets each call take as long as the server needs; otherwise it fails after a few seconds.
    /// In a file, it waits up to half a minute for the transactions of others; otherwise less than a second.
    void setPatient(bool isPatient = true) { m_isPatient = isPatient; }
    bool isPatient() const { return m_isPatient; }
    /// Opens the same location again, for example after the connection was lost. The server's former process, which may
    /// not know of the loss yet, is ended, so that nothing is left locked. If it fails, statements fail like those of a
    /// lost connection.
    Status reopen();
    void close();
    bool isOpen() const;
    /// The opened location, empty while closed.
    QString location() const { return m_location; }
    /// The opened file; empty for a server or while closed.
    FileIdentity file() const;
    /// Fails if the file was deleted, exchanged, moved or linked. The connection still reads it then.
    Status checkFile();
    /// The role that is logged in to a server; empty for a file.
    QString role() const;
    /// The SQL that differs between the engines; a file's while closed.
    const SqlDialect& dialect() const;
    /// The driver's handle, a `sqlite3*` or `PGconn*`; invalid while closed.
    QVariant handle() const;

    /// Runs `work` in one write transaction. Commits if it succeeds, otherwise rolls back and returns its status. The
    /// first failure within a transaction, also of a statement whose status `work` drops, is the transaction's result;
    /// no later statement runs. A nested `transaction` joins the outer one. Nothing is written once the file was
    /// deleted, exchanged, moved or linked.
    Status transaction(const std::function<Status()>& work);
    /// Runs `work`, which only reads, on the contents of one moment, outside of a transaction. Waits for nobody, and is
    /// possible on a replica.
    Status snapshot(const std::function<Status()>& work);

    /// True if the last transaction failed in its COMMIT, which may have been stored all the same.
    bool commitFailed() const { return m_commitFailed; }
    /// The status of the last transaction: `OutcomeUnknown` with it as the cause if the connection was lost in its
    /// COMMIT, for what nobody looks up and is harmless if it is done again.
    Status outcome(const Status& status) const;
    /// Milliseconds since the last transaction began.
    qint64 sinceBegin() const { return m_sinceBegin.isValid() ? m_sinceBegin.elapsed() : 0; }

    /// Identifies this connection on its server; empty for a file.
    QString process() const { return m_process; }
    /// Ends another connection of the same role and waits for its end: afterwards its last transaction is stored or
    /// will never be. Does nothing if there is no such connection, or if it is this one.
    Status endProcess(const QString& process);

    /// Statements with positional values. A null text is bound as an empty one; an invalid `QVariant` as NULL.

    /// Runs a statement without a result, in a transaction of its own unless one is running.
    Status execute(const QString& statement, const QVariantList& values = {});
    /// Like `execute`; returns the number of changed rows.
    Result<int> change(const QString& statement, const QVariantList& values);
    /// Like `execute`, for a statement that inserts a row, which a server's statement returns. Returns its number.
    Result<qint64> insert(const QString& statement, const QVariantList& values);
    /// Reads all rows. If it fails, rows that were already taken must be dropped.
    Status read(const QString& statement, const QVariantList& values, const TakeRow& take);
    /// The first column of the first row; invalid if there is no row.
    Result<QVariant> value(const QString& statement, const QVariantList& values = {});
    /// The number that a SELECT counts. Ends if a file takes much longer than its size can need.
    Result<int> count(const QString& statement, const QVariantList& values = {});
    /// The first column of all rows.
    Result<QStringList> texts(const QString& statement, const QVariantList& values);
    /// Reads the rows of a SELECT and keeps others from changing them until the transaction ends. Waits for those who
    /// do, and reads what they have changed; what it reads from other rows may be older. Outside of a transaction, and
    /// in a file, whose transactions run one after the other, it only reads.
    Status readLocked(const QString& statement, const QVariantList& values, const TakeRow& take);
    /// Like `readLocked`, for rows that are read afterwards.
    Status lock(const QString& statement, const QVariantList& values);
    /// Runs statements outside of any transaction, for example a PRAGMA.
    Status configure(const QString& statement);

    /// Notes the result of a statement that ran on the engine's own interface, and returns it, or why the transaction
    /// has ended.
    Status note(const Status& status);
    /// The rows of a statement by the engine's own interface, for `RowReader`; null while closed.
    std::unique_ptr<EngineRows> rows(const QString& statement);
    /// Ends the running statement, which fails. Any thread may call it while the database is open.
    void interrupt();

    /// From now on calls `noticed` when another connection has committed changes or this one is lost: from `poll`, or
    /// from the thread's event loop. Several commits may be noticed at once.
    Status watch(const std::function<void()>& noticed);
    void endWatch();
    /// Call it regularly while the database is watched: looks for commits in a file, and for a sign of life of a
    /// server. Never waits, and does nothing within a transaction. Fails if the connection is lost, or like
    /// `checkFile`.
    Status poll();

    /// Reads a whole file, which takes seconds if it is large. Fails if it is damaged. `interrupt` ends it. A server
    /// checks its files itself.
    Status checkPages();

    /// Prepares a file's write-ahead log for the next transaction: starts it, and after many transactions checkpoints
    /// it first. Call it while the user is idle; a busy or read-only file stays unchanged.
    void prepareWal();
    /// Change token: equal tokens mean equal contents, as far as changes have been noticed while a server is watched.
    /// It changes with every change by this connection and every commit of another one. Empty within a transaction, or
    /// if unavailable.
    QString changeToken();
    /// The version of an opened file's contents that the running transaction, or the last statement, has read: each
    /// commit makes another one, also of this connection. Unlike `changeToken`, it costs nothing and looks for nothing.
    /// Empty on a server.
    QString contentVersion() const;

private:
    Status openWith(const QString& location, bool migrates, const FileIdentity& file);
    Status begin(const QString& statement);
    Result<qint64> insertAlone(const QString& statement, const QVariantList& values);
    Status finish(const Status& worked);
    Status run(
        const QString& statement, const QVariantList& values, const std::function<Status(QSqlQuery& query)>& use);
    Status notOpen() const;
    Status statusOf(bool done, const QSqlQuery& query);
    bool isIdle() const { return isOpen() && !m_inTransaction; }

    const QString m_connectionName;
    QString m_location;
    QSqlDatabase m_connection;
    std::unique_ptr<DatabaseEngine> m_engine;              ///< null while closed
    QHash<QString, std::shared_ptr<QSqlQuery>> m_prepared; ///< statements that do not run, by their text
    QString m_process;
    QElapsedTimer m_sinceBegin;
    bool m_inTransaction = false;
    bool m_isPatient = false;
    bool m_isCommitting = false;
    bool m_commitFailed = false;
    Status m_failure; ///< the first one of the running transaction
};
