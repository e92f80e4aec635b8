#pragma once

#include "StrategyDefinition.h"

#include <QWidget>

class QLabel;
class QSlider;

/// A slider over the entries of a control or the range of its parameter, with the value beside it. It may have no value
/// until it is moved.
class SliderInput : public QWidget {
    Q_OBJECT

public:
    SliderInput(const StrategyControl& control, const StrategyParameter& parameter, QWidget* parent);

    /// True if the control has entries, or its parameter a range of few enough steps.
    static bool isPossible(const StrategyControl& control, const StrategyParameter& parameter);

    /// The control's value; empty if there is none.
    QString value() const { return m_value; }
    void setValue(const QString& value);

Q_SIGNALS:
    void valueChanged();

private:
    void take(int position);
    void showValue();

    StrategyControl m_control;
    StrategyParameter m_parameter;
    QSlider* m_slider = nullptr;
    QLabel* m_text = nullptr;
    QString m_value;
};
