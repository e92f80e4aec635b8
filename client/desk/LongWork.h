#pragma once

#include "DatabaseThread.h"

#include <QObject>

#include <atomic>
#include <functional>

/// Work with the database on another thread, which reports its progress and can be cancelled; one at a time. The
/// destructor interrupts it.
class LongWork : public QObject {
    Q_OBJECT

public:
    /// Called by the work with the number of steps that are done. Returns false if the rest is to be left.
    using Progress = std::function<bool(int done)>;
    /// Runs on the other thread. `opened`: whether the database can be used.
    using Work = std::function<void(Database& database, const Status& opened, const Progress& progress)>;

    /// `session`: see `DatabaseThread`.
    explicit LongWork(const Database& session);

    /// Starts unless another work is running; `done` is called on this object's thread afterwards.
    void start(const Work& work, const std::function<void()>& done);
    void cancel() { m_isCancelled = true; }
    bool isRunning() const { return m_isRunning; }

Q_SIGNALS:
    void progressed(int done);

private:
    bool report(int steps);

    bool m_isRunning = false;
    std::atomic_int m_steps{ 0 };
    std::atomic_bool m_isReported{ false };
    std::atomic_bool m_isCancelled{ false };
    DatabaseThread m_thread; ///< destroyed before the data of its jobs
};
