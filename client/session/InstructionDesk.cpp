#include "session/InstructionDesk.h"

/// Lives on the desk's thread.
class InstructionDesk::Reader : public QObject {
public:
    Reader(InstructionDesk* desk, const QString& fileName)
        : m_desk(desk)
        , m_fileName(fileName)
    {
    }

    void answer(int question, const QString& planId, const QString& mark)
    {
        if (question != m_desk->m_asked)
            return;
        if (!m_database.isOpen() && !m_database.open(m_fileName).isEmpty())
            return;
        const Instructions instructions = InstructionStore(m_database).ofPlan(planId);
        if (question == m_desk->m_asked)
            Q_EMIT m_desk->arrived(planId, mark, instructions);
    }

private:
    InstructionDesk* const m_desk;
    const QString m_fileName;
    Database m_database;
};

InstructionDesk::InstructionDesk(const QString& fileName)
    : m_reader(new Reader(this, fileName))
{
    qRegisterMetaType<InstructionDesk::Instructions>("InstructionDesk::Instructions");
    m_thread.setObjectName(QStringLiteral("instructions"));
    m_reader->moveToThread(&m_thread);
    // The reader goes on its own thread, for so does its connection to the database.
    connect(&m_thread, &QThread::finished, m_reader, &QObject::deleteLater);
    m_thread.start(QThread::LowPriority);
}

InstructionDesk::~InstructionDesk()
{
    ++m_asked;
    m_thread.quit();
    m_thread.wait();
}

void InstructionDesk::read(const QString& planId, const QString& mark)
{
    const int question = ++m_asked;
    QMetaObject::invokeMethod(
        m_reader, [=, reader = m_reader] { reader->answer(question, planId, mark); }, Qt::QueuedConnection);
}
