#include "services/StrategyQuery.h"
#include "AlgoTradeLogicNew.h"
#include "strategies/StrategyLibrary.h"

#include <QtConcurrent>

QFuture<void> StrategyQuery::start()
{
    // The service is made here, so that it belongs to the calling thread and not to the worker.
    AlgoTradeLogicNew* const service = AlgoTradeLogicNew::GetInstance();
    return QtConcurrent::run(
        [service] { Q_EMIT service->sigQryAlgoStrategiesRsp(StrategyLibrary::instance().strategies()); });
}
