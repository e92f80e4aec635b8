#pragma once

#include "AesStrategy.h"
#include <QList>
#include <QObject>

/// The client's algorithm service. One per process.
class AlgoTradeLogicNew : public QObject {
    Q_OBJECT

public:
    /// The service; lives as long as the process and stays its own.
    static AlgoTradeLogicNew* GetInstance();

    /// The strategy of a name; a default-constructed one when the name is unknown.
    AesStrategy GetStrategy(const QString& name);

Q_SIGNALS:
    /// The answer to a strategy query, possibly emitted from another thread: what may be traded by algorithm has
    /// been read afresh.
    void sigQryAlgoStrategiesRsp(const QList<AesStrategy>& strategies);

private:
    AlgoTradeLogicNew();
    ~AlgoTradeLogicNew() override;
};
