#pragma once

#include "StrategyDefinition.h"
#include <QAbstractSpinBox>

/// Line with step buttons that takes any text: nothing that the trader types is altered, whatever is wrong with it.
/// The arrows step numbers within the parameter's range and times by minutes.
class StepInput : public QAbstractSpinBox {
    Q_OBJECT

public:
    StepInput(const StrategyControl& control, const StrategyParameter& parameter, QWidget* parent);

    void setText(const QString& text);

    void stepBy(int steps) override;
    QValidator::State validate(QString& input, int& pos) const override;

protected:
    StepEnabled stepEnabled() const override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void stepNumber(int steps);
    void stepTime(int steps);

    StrategyControl m_control;
    StrategyParameter m_parameter;
};
