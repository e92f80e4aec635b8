#include "InstructionPrefetcher.h"

InstructionPrefetcher::InstructionPrefetcher(const QString& fileName)
    : m_thread(QStringLiteral("instructions"), fileName)
{
    qRegisterMetaType<InstructionPrefetcher::Instructions>("InstructionPrefetcher::Instructions");
}

void InstructionPrefetcher::read(const QString& planId, const QString& token)
{
    const int question = ++m_asked;
    m_thread.run([=](Database& database, const Status& opened) {
        if (question != m_asked || !opened)
            return;
        const Instructions instructions = InstructionStore(database).ofPlan(planId);
        if (question == m_asked && !m_thread.isStopping())
            Q_EMIT arrived(planId, token, instructions);
    });
}
