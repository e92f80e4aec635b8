#include "MovingAverageWorker.h"

#include "MovingAverages.h"
#include "SecurityStore.h"

MovingAverageWorker::MovingAverageWorker(const QString& fileName)
    : m_thread(QStringLiteral("moving averages"), fileName)
{
}

void MovingAverageWorker::ask(const QString& symbol)
{
    m_thread.run([this, symbol](Database& database, const QString& reason) {
        QStringList names;
        if (reason.isEmpty())
            names = MovingAverages::available(SecurityStore(database).closes(symbol).ticks.size());
        if (!m_thread.isStopping())
            Q_EMIT answered(symbol, names, reason);
    });
}
