#pragma once

#include "Database.h"

#include <QMutex>
#include <QThread>

#include <atomic>
#include <functional>

/// A thread with a connection to the database, for reads that must not block the user interface.
class DatabaseThread {
public:
    /// Runs on the thread. `opened`: whether the database can be read.
    using Job = std::function<void(Database& database, const Status& opened)>;

    /// `session`: an open connection to the database, which the first job opens again, unless its file has been
    /// exchanged or deleted meanwhile. Closed after the last job. When the session's connection is lost, the next job
    /// opens it again.
    DatabaseThread(const QString& name, const Database& session);
    /// Interrupts the running job, waits for it and drops the waiting ones.
    ~DatabaseThread();
    DatabaseThread(const DatabaseThread&) = delete;
    DatabaseThread& operator=(const DatabaseThread&) = delete;

    /// Appends a job to the queue.
    void run(const Job& job);
    /// Lets the next job open the database again, whose connection may be lost.
    void reconnect();
    /// True once the thread is being stopped; a job must not emit its result then.
    bool isStopping() const { return m_stopping; }

private:
    class Connection;

    void setRunning(Database* database);
    void interrupt();

    QMutex m_lock;
    Database* m_running = nullptr; ///< while a job uses it
    QThread m_thread;
    Connection* m_connection;
    std::atomic_bool m_stopping{ false };
};
