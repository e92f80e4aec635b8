#include "StrategyQuery.h"

#include "AlgoTradeLogicNew.h"
#include "StrategyLibrary.h"

#include <QtConcurrent>

QFuture<void> StrategyQuery::start()
{
    // Creates the service here, so that it belongs to the calling thread and not to the worker.
    AlgoTradeLogicNew* const service = AlgoTradeLogicNew::GetInstance();
    return QtConcurrent::run(
        [service] { Q_EMIT service->sigQryAlgoStrategiesRsp(StrategyLibrary::instance().strategies()); });
}

AlgoTradeLogicNew::AlgoTradeLogicNew() = default;

AlgoTradeLogicNew::~AlgoTradeLogicNew() = default;

AlgoTradeLogicNew* AlgoTradeLogicNew::GetInstance()
{
    static AlgoTradeLogicNew service;
    return &service;
}

AesStrategy AlgoTradeLogicNew::GetStrategy(const QString& name)
{
    return StrategyLibrary::summary(StrategyLibrary::instance().strategy(name));
}
