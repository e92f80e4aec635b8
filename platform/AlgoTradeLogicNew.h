#pragma once

#include "AesStrategy.h"

#include <QList>
#include <QObject>

/// The client's algorithm service. One object per process.
class AlgoTradeLogicNew : public QObject {
    Q_OBJECT

public:
    /// Returns the service, which lives as long as the process. The caller must not delete it.
    static AlgoTradeLogicNew* GetInstance();

    /// Returns the strategy with a name; a default-constructed one if the name is unknown.
    AesStrategy GetStrategy(const QString& name);

Q_SIGNALS:
    /// Emitted, possibly from another thread, when the answer to a strategy query arrives: the securities that can be
    /// traded by algorithm have been reloaded.
    void sigQryAlgoStrategiesRsp(const QList<AesStrategy>& strategies);

private:
    AlgoTradeLogicNew();
    ~AlgoTradeLogicNew() override;
};
