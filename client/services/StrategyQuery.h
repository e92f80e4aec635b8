#pragma once

#include <QFuture>

/// The strategy query of the algorithm service.
namespace StrategyQuery {

/// Reads the strategies again on a worker thread, which then emits `AlgoTradeLogicNew::sigQryAlgoStrategiesRsp`. Call
/// it on the user interface thread. The future finishes when the signal has been emitted; callers need not wait for it.
QFuture<void> start();

} // namespace StrategyQuery
