#include "LongWork.h"

LongWork::LongWork(const Database& session)
    : m_thread(QStringLiteral("long work"), session)
{
}

void LongWork::start(const Work& work, const std::function<void()>& done)
{
    if (m_isRunning)
        return;
    m_isRunning = true;
    m_isCancelled = false;
    m_thread.run([this, work, done](Database& database, const Status& opened) {
        work(database, opened, [this](int steps) { return report(steps); });
        if (m_thread.isStopping())
            return;
        // The next work connects again.
        if (!database.poll())
            m_thread.reconnect();
        const auto finish = [this, done] {
            m_isRunning = false;
            done();
        };
        QMetaObject::invokeMethod(this, finish, Qt::QueuedConnection);
    });
}

// One event at a time, however often the work reports.
bool LongWork::report(int steps)
{
    m_steps = steps;
    if (!m_isReported.exchange(true)) {
        const auto emitLast = [this] {
            m_isReported = false;
            Q_EMIT progressed(m_steps);
        };
        QMetaObject::invokeMethod(this, emitLast, Qt::QueuedConnection);
    }
    return !m_isCancelled && !m_thread.isStopping();
}
