#pragma once

#include "EditEvaluation.h"
#include "StrategyDefinition.h"

#include <QMap>
#include <QStringList>

/// The controls of a strategy while their values are entered: their values, and what the state rules make of them. One
/// change settles all rules.
///
/// A rule sets its value when its condition begins to hold. A rule with `NullValue` keeps the control empty as long as
/// its condition holds; then the control has its last value again. A control is enabled or visible as the last rule
/// says whose condition holds, otherwise as the last rule says whose condition does not.
class PanelState {
public:
    explicit PanelState(const StrategyDefinition& strategy);
    // The conditions read the values of this object.
    PanelState(const PanelState&) = delete;
    PanelState& operator=(const PanelState&) = delete;

    QString value(int control) const { return m_controls.at(control).value; }
    bool isEnabled(int control) const { return m_controls.at(control).isEnabled; }
    bool isVisible(int control) const { return m_controls.at(control).isVisible; }

    /// Sets the values with which nothing has been entered yet.
    void reset(const QStringList& initialValues);
    /// Enters a value of a control.
    void enter(int control, const QString& value);
    /// Sets the stored values of all parameters. They stay as they are: controls that only serve rules get the state
    /// that fits them best.
    void load(const QMap<QString, QString>& parameters);

    /// The values of the parameters.
    QMap<QString, QString> parameters() const;

private:
    struct ControlState {
        QString value;
        QString kept; ///< the value before the control was cleared
        bool isCleared = false;
        bool isEnabled = true;
        bool isVisible = true;
        QVector<bool> held; ///< whether the condition of each rule held
    };

    void settle();
    void settleValue(int control);
    void clear(int control, bool isCleared);
    void setValue(int control, const QString& value);
    void show(int control);
    void noteConditions();
    void fitHelpers();
    int misfits();
    QStringList alternatives(int control) const;

    StrategyDefinition m_strategy;
    QStringList m_initialValues;
    QVector<ControlState> m_controls;
    EditEvaluation m_conditions;
};
