#pragma once

#include "ControlInput.h"
#include "PanelState.h"
#include "Status.h"

#include <QMap>
#include <QVector>
#include <QWidget>

class QGridLayout;

/// The panel of one strategy: its controls in their panels, one row per control: label, input, unit, range. State rules
/// are settled after every change.
class ParameterForm : public QWidget {
    Q_OBJECT

public:
    /// The first invalid input.
    struct Fault {
        Status status;     ///< success if every input is valid
        QString parameter; ///< name of the input's parameter; empty on success
    };

    ParameterForm(const StrategyDefinition& strategy, QWidget* parent);

    QString strategyName() const { return m_strategy.name; }
    StrategyDefinition strategy() const { return m_strategy; }

    /// Sets lot and decimals of the price of the security: decimals of prices for which the strategy's file has none,
    /// and steps that depend on the security.
    void setSecurity(int lot, int decimals);
    /// Sets the fields of the order with which controls start, by their names "FIX_...". Inputs with a value of the
    /// trader or of a plan stay, also if they are empty.
    void setOrderFields(const QMap<QString, QString>& fields);

    /// Shows values; inputs without a value in the map do not change. A map with all parameters is that of a plan.
    void setValues(const QMap<QString, QString>& values);
    /// The entered values by parameter, including constants; empty texts for empty inputs.
    QMap<QString, QString> values() const { return m_state.parameters(); }
    /// Checks the parameters in the order of the controls, then the strategy's rules.
    [[nodiscard]] Fault check() const;
    /// The last input in tab order; null if there is none.
    QWidget* lastInput() const;
    /// Marks the input of a parameter as invalid and gives it the focus; an empty name removes the mark.
    void markFault(const QString& parameter);

private:
    void fillPanel(const StrategyPanel& panel, QGridLayout* grid, QWidget* owner);
    void fillVertically(const StrategyPanel& panel, QGridLayout* grid, QWidget* owner);
    void fillHorizontally(const StrategyPanel& panel, QGridLayout* grid, QWidget* owner);
    void addItem(const PanelItem& item, QGridLayout* grid, QWidget* owner);
    void addPanel(const StrategyPanel& panel, QGridLayout* grid, QWidget* owner);
    void addHeading(const QString& title, QGridLayout* grid, QWidget* owner);
    void addControl(int control, QGridLayout* grid, QWidget* owner);
    void addRow(ControlInput& input, QGridLayout* grid, QWidget* owner);
    void addHint(ControlInput& input, QGridLayout* grid, QWidget* owner);
    void describe(const ControlInput& input) const;

    Status check(const ControlInput& input, const QString& value) const;
    void takeInput(int input);
    void showState();

    StrategyDefinition m_strategy;
    PanelState m_state;
    QVector<ControlInput> m_inputs;
    bool m_isShowing = false; ///< inputs change because they show the state
};
