#pragma once

#include "ParamListWidget_single.h"

/// The algorithm parameter panel of the scripted factory: it records its calls and answers from the script.
class ScriptedPanel : public ParamListWidget_single {
    Q_OBJECT

public:
    explicit ScriptedPanel(QWidget* parent);

    QString LoadStrategy(const AesStrategy& strategy, const QMap<QString, QVariant>& defaults,
        const QMap<QString, QVariant>& parameters, const QString& symbol) override;
    QMap<QString, QVariant> GetParamMap() const override;
    QString GetStrategyName() const override;
    void RefreshAlgoList() override;
    void ReInit() override;
    bool HasParams() const override;
    void ClearParams() override;
};
