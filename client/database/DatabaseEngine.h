#pragma once

#include "FileIdentity.h"
#include "SqlDialect.h"
#include "Status.h"

#include <QByteArray>
#include <QSqlDatabase>
#include <QString>
#include <QVariant>

#include <functional>
#include <memory>

class QSqlError;

/// The rows of a statement as an engine's own interface returns them.
class EngineRows {
public:
    EngineRows() = default;
    virtual ~EngineRows() = default;
    EngineRows(const EngineRows&) = delete;
    EngineRows& operator=(const EngineRows&) = delete;

    /// Moves to the next row, first to the first one. Returns false after the last row or an error.
    virtual bool next() = 0;
    /// Whether all rows could be read so far.
    virtual const Status& status() const = 0;
    /// The text in a column, valid until the next row; empty for NULL.
    virtual QByteArray bytes(int column) const = 0;
    virtual bool isNull(int column) const = 0;
    /// The number in a column; 0 for NULL.
    virtual qint64 number(int column) const = 0;
};

/// What each kind of database does in its own way. `Database` does what is the same for all of them.
class DatabaseEngine {
public:
    DatabaseEngine() = default;
    virtual ~DatabaseEngine() = default;
    DatabaseEngine(const DatabaseEngine&) = delete;
    DatabaseEngine& operator=(const DatabaseEngine&) = delete;

    /// Opens the database as a connection of this name. `migrates`: whether an older schema may be migrated; a file's
    /// always is.
    virtual Status open(QSqlDatabase& connection, const QString& name, const QString& location, bool migrates) = 0;
    /// Called before an open connection is closed.
    virtual void prepareClosing() { }

    /// The role that is logged in to a server; empty for a file.
    virtual QString role() const { return {}; }

    virtual const SqlDialect& dialect() const = 0;

    /// True within a transaction that can be committed.
    virtual bool isInTransaction() const = 0;
    virtual void rollBack() = 0;
    /// Fails if nothing may be written.
    virtual Status check() { return {}; }
    /// The opened file; empty for a server.
    virtual FileIdentity file() const { return {}; }
    /// Called after each commit.
    virtual void countCommit() { }

    /// Called before and after each statement that `Database` runs. `spent`: milliseconds since the transaction began.
    virtual void beginStatement(qint64 spent) { Q_UNUSED(spent); }
    virtual void endStatement() { }
    /// Identifies the server's process of this connection; empty for a file.
    virtual QString process() const { return {}; }

    /// See `Database::contentVersion`.
    virtual QString contentVersion() const { return {}; }

    /// Whether rows are read one by one. Otherwise other statements may run meanwhile.
    virtual bool streamsRows() const = 0;
    virtual std::unique_ptr<EngineRows> rows(const QString& statement) = 0;
    /// Runs a statement that returns the number of its new row as a transaction of its own, in one round trip. Returns
    /// 0 if there is no row. Only for engines whose changes nest.
    virtual Result<qint64> insertAlone(const QString& statement, const QVariantList& values)
    {
        Q_UNUSED(statement);
        Q_UNUSED(values);
        return Error::DatabaseFailed;
    }
    /// Ends the statements of `work` if they take much longer than the contents of the database can need.
    virtual Status withinTime(const std::function<Status()>& work) { return work(); }
    /// Fails if the database cannot have as many rows in any table.
    virtual Status checkRows(qint64 rows)
    {
        Q_UNUSED(rows);
        return {};
    }
    /// What an error of Qt's driver means.
    virtual Status failure(const QSqlError& error) = 0;
    /// Ends the running statement, which fails. Any thread may call it while the database is open.
    virtual void interrupt() = 0;

    /// From now on calls `noticed` when another connection has committed changes.
    virtual Status watch(const std::function<void()>& noticed) = 0;
    /// See `Database::changeToken`; empty if the database must be queried for it.
    virtual QString changeToken() const { return {}; }
    virtual void endWatch() = 0;
    /// See `Database::poll`.
    virtual Status poll() = 0;

    virtual Status checkPages() { return {}; }
    virtual void prepareWal() { }
};
