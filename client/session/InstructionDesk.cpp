#include "InstructionDesk.h"

InstructionDesk::InstructionDesk(const QString& fileName)
    : m_thread(QStringLiteral("instructions"), fileName)
{
    qRegisterMetaType<InstructionDesk::Instructions>("InstructionDesk::Instructions");
}

void InstructionDesk::read(const QString& planId, const QString& mark)
{
    const int question = ++m_asked;
    m_thread.run([=](Database& database, const QString& reason) {
        if (question != m_asked || !reason.isEmpty())
            return;
        const Instructions instructions = InstructionStore(database).ofPlan(planId);
        if (question == m_asked && !m_thread.isStopping())
            Q_EMIT arrived(planId, mark, instructions);
    });
}
