#include "MovingAverageDesk.h"

#include "MovingAverages.h"
#include "SecurityStore.h"

MovingAverageDesk::MovingAverageDesk(const QString& fileName)
    : m_thread(QStringLiteral("moving averages"), fileName)
{
}

void MovingAverageDesk::ask(const QString& symbol)
{
    m_thread.run([this, symbol](Database& database, const QString& reason) {
        QStringList names;
        if (reason.isEmpty())
            names = MovingAverages::available(SecurityStore(database).closes(symbol).ticks.size());
        if (!m_thread.isStopping())
            Q_EMIT answered(symbol, names, reason);
    });
}
