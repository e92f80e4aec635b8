#pragma once

#include "StrategyDefinition.h"

#include <QAbstractSpinBox>

/// A line edit with step buttons that accepts any text and does not alter it. The arrows step numbers within the
/// parameter's range and times by minutes.
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
