#include "MovingAverageWorker.h"

#include "MovingAverages.h"
#include "SecurityStore.h"

namespace {

Result<QStringList> availableAverages(Database& database, const Status& opened, const QString& symbol)
{
    if (!opened)
        return opened;
    const Result<CloseHistory> closes = SecurityStore(database).closes(symbol);
    if (!closes)
        return closes.status();
    return MovingAverages::available(closes->ticks.size());
}

} // namespace

MovingAverageWorker::MovingAverageWorker(const Database& session)
    : m_thread(QStringLiteral("moving averages"), session)
{
}

void MovingAverageWorker::ask(const QString& symbol)
{
    m_thread.run([this, symbol](Database& database, const Status& opened) {
        const Result<QStringList> names = availableAverages(database, opened, symbol);
        if (!m_thread.isStopping())
            Q_EMIT answered(symbol, names);
    });
}
