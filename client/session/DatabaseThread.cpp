#include "DatabaseThread.h"

/// Belongs to the thread.
class DatabaseThread::Connection : public QObject {
public:
    explicit Connection(const QString& fileName)
        : m_fileName(fileName)
    {
    }

    void run(const Job& job)
    {
        const Status opened = m_database.isOpen() ? Status() : m_database.open(m_fileName);
        job(m_database, opened);
    }

private:
    const QString m_fileName;
    Database m_database;
};

DatabaseThread::DatabaseThread(const QString& name, const QString& fileName)
    : m_connection(new Connection(fileName))
{
    m_thread.setObjectName(name);
    m_connection->moveToThread(&m_thread);
    // The connection must be closed on the thread that opened it.
    QObject::connect(&m_thread, &QThread::finished, m_connection, &QObject::deleteLater);
    m_thread.start(QThread::LowPriority);
}

DatabaseThread::~DatabaseThread()
{
    m_stopping = true;
    m_thread.quit();
    m_thread.wait();
}

void DatabaseThread::run(const Job& job)
{
    const auto runUnlessStopping = [this, job] {
        if (!m_stopping)
            m_connection->run(job);
    };
    QMetaObject::invokeMethod(m_connection, runUnlessStopping, Qt::QueuedConnection);
}
