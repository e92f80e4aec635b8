#pragma once

#include <QFuture>

/// The strategy query of the algorithm service.
namespace StrategyQuery {

/// Reads the strategies afresh in a worker thread, which then emits `AlgoTradeLogicNew::sigQryAlgoStrategiesRsp`.
/// Called on the user interface thread. The future is finished when the signal has been emitted; nobody needs to wait
/// for it.
QFuture<void> start();

} // namespace StrategyQuery
