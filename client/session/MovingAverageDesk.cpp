#include "session/MovingAverageDesk.h"

#include "market/MovingAverages.h"
#include "store/SecurityStore.h"

#include <atomic>

/// Lives on the desk's thread.
class MovingAverageDesk::Reader : public QObject {
public:
    Reader(MovingAverageDesk* desk, const QString& fileName)
        : m_desk(desk)
        , m_fileName(fileName)
    {
    }

    void answer(const QString& symbol)
    {
        if (m_stopped)
            return;
        const QString reason = m_database.isOpen() ? QString() : m_database.open(m_fileName);
        QStringList names;
        if (reason.isEmpty())
            names = MovingAverages::available(SecurityStore(m_database).closes(symbol).ticks.size());
        if (!m_stopped)
            Q_EMIT m_desk->answered(symbol, names, reason);
    }

    void stop() { m_stopped = true; }

private:
    MovingAverageDesk* const m_desk;
    const QString m_fileName;
    Database m_database;
    std::atomic_bool m_stopped{ false };
};

MovingAverageDesk::MovingAverageDesk(const QString& fileName)
    : m_reader(new Reader(this, fileName))
{
    m_thread.setObjectName(QStringLiteral("moving averages"));
    m_reader->moveToThread(&m_thread);
    // The reader goes on its own thread, for so does its connection to the database.
    connect(&m_thread, &QThread::finished, m_reader, &QObject::deleteLater);
    m_thread.start(QThread::LowPriority);
}

MovingAverageDesk::~MovingAverageDesk()
{
    m_reader->stop();
    m_thread.quit();
    m_thread.wait();
}

void MovingAverageDesk::ask(const QString& symbol)
{
    QMetaObject::invokeMethod(
        m_reader, [reader = m_reader, symbol] { reader->answer(symbol); }, Qt::QueuedConnection);
}
