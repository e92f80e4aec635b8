#pragma once

#include "Database.h"

#include <QThread>

#include <atomic>
#include <functional>

/// A thread with a connection to the database, for reads that must not block the user interface.
class DatabaseThread {
public:
    /// Runs on the thread. `opened`: whether the database can be read.
    using Job = std::function<void(Database& database, const Status& opened)>;

    /// `fileName`: the database, opened by the first job.
    DatabaseThread(const QString& name, const QString& fileName);
    /// Waits for the running job and drops the waiting ones.
    ~DatabaseThread();
    DatabaseThread(const DatabaseThread&) = delete;
    DatabaseThread& operator=(const DatabaseThread&) = delete;

    /// Appends a job to the queue.
    void run(const Job& job);
    /// True once the thread is being stopped; a job must not emit its result then.
    bool isStopping() const { return m_stopping; }

private:
    class Connection;

    QThread m_thread;
    Connection* m_connection;
    std::atomic_bool m_stopping{ false };
};
