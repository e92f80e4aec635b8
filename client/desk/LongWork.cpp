#include "LongWork.h"

LongWork::LongWork(const QString& location)
    : m_thread(QStringLiteral("long work"), location)
{
}

void LongWork::start(const Work& work, const std::function<void()>& done)
{
    if (m_isRunning)
        return;
    m_isRunning = true;
    m_isCancelled = false;
    m_thread.run([this, work, done](Database& database, const Status& opened) {
        work(database, opened, [this](int steps) {
            QMetaObject::invokeMethod(
                this, [this, steps] { Q_EMIT progressed(steps); }, Qt::QueuedConnection);
            return !m_isCancelled && !m_thread.isStopping();
        });
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
