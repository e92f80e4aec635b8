#pragma once

#include "AesStrategy.h"
#include <QObject>

class AlgoTradeLogicNew : public QObject {
    Q_OBJECT

public:
    static AlgoTradeLogicNew* GetInstance();
    AesStrategy GetStrategy(const QString& name) const { return { name, name }; }

signals:
    void sigQryAlgoStrategiesRsp(const QList<AesStrategy>& strategies);
};
