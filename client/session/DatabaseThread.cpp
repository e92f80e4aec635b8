#include "DatabaseThread.h"

#include "PlanEvents.h"

#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr unsigned long InterruptInterval = 5; // milliseconds
constexpr int Niceness = 10;

// The window goes first. Linux has no other priorities of usual threads, so QThread's have no effect.
void yieldToTheWindow()
{
    setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), Niceness);
}

} // namespace

/// Belongs to the thread.
class DatabaseThread::Connection : public QObject {
public:
    Connection(DatabaseThread& thread, const Database& session)
        : m_thread(thread)
        , m_location(session.location())
        , m_file(session.file())
    {
    }

    void run(const Job& job)
    {
        const Status opened = open();
        m_thread.setRunning(&m_database);
        job(m_database, opened);
        m_thread.setRunning(nullptr);
    }

    void close() { m_database.close(); }

private:
    Status open() { return m_database.isOpen() ? Status() : m_database.open(m_location, m_file); }

    DatabaseThread& m_thread;
    const QString m_location;
    const FileIdentity m_file;
    Database m_database;
};

DatabaseThread::DatabaseThread(const QString& name, const Database& session)
    : m_connection(new Connection(*this, session))
{
    m_thread.setObjectName(name);
    m_connection->moveToThread(&m_thread);
    // Otherwise the next job would use a connection that is lost, too.
    QObject::connect(&PlanEvents::instance(), &PlanEvents::connectionLost, m_connection, &Connection::close);
    // The connection must be closed on the thread that opened it.
    QObject::connect(&m_thread, &QThread::finished, m_connection, &QObject::deleteLater);
    QObject::connect(&m_thread, &QThread::started, &m_thread, yieldToTheWindow, Qt::DirectConnection);
    m_thread.start();
}

DatabaseThread::~DatabaseThread()
{
    m_stopping = true;
    m_thread.quit();
    // More than once, because a job may be about to start its next statement.
    while (!m_thread.wait(InterruptInterval))
        interrupt();
}

void DatabaseThread::setRunning(Database* database)
{
    const QMutexLocker locker(&m_lock);
    m_running = database;
}

void DatabaseThread::interrupt()
{
    const QMutexLocker locker(&m_lock);
    if (m_running)
        m_running->interrupt();
}

void DatabaseThread::run(const Job& job)
{
    const auto runUnlessStopping = [this, job] {
        if (!m_stopping)
            m_connection->run(job);
    };
    QMetaObject::invokeMethod(m_connection, runUnlessStopping, Qt::QueuedConnection);
}

void DatabaseThread::reconnect()
{
    QMetaObject::invokeMethod(
        m_connection, [this] { m_connection->close(); }, Qt::QueuedConnection);
}
