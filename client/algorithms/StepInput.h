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
    /// Sets the lot and the decimals of the price of the security, for steps that depend on it; 0 if unknown.
    void setSecurity(int lot, int decimals);

    void stepBy(int steps) override;
    QValidator::State validate(QString& input, int& pos) const override;

Q_SIGNALS:
    void textChanged();

protected:
    StepEnabled stepEnabled() const override;
    void wheelEvent(QWheelEvent* event) override;

private:
    double step(bool isLarge) const;
    void stepNumber(int steps);
    void stepTime(int steps);

    StrategyControl m_control;
    StrategyParameter m_parameter;
    int m_lot = 0;
    int m_decimals = -1;
};
