#include "InstructionPrefetcher.h"

InstructionPrefetcher::InstructionPrefetcher(const Database& session)
    : m_thread(QStringLiteral("instructions"), session)
{
    qRegisterMetaType<InstructionPrefetcher::Instructions>("InstructionPrefetcher::Instructions");
    qRegisterMetaType<Status>("Status");
}

void InstructionPrefetcher::read(const QString& planId, const QString& token)
{
    const int request = ++m_requested;
    m_thread.run([=](Database& database, const Status& opened) {
        if (request != m_requested)
            return;
        const Result<Instructions> read = opened ? InstructionStore(database).ofPlan(planId) : opened;
        if (request != m_requested || m_thread.isStopping())
            return;
        if (read)
            Q_EMIT arrived(planId, token, *read);
        else
            Q_EMIT failed(read.status());
    });
}
