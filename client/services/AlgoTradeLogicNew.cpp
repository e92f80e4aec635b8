#include "AlgoTradeLogicNew.h"
#include "strategies/StrategyLibrary.h"

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
