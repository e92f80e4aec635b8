#include "PanelState.h"

#include "ControlValue.h"

namespace {

const QString Yes = QStringLiteral("true");
const QString No = QStringLiteral("false");

/// Largest product of helping controls and state rules for which their states are tried.
constexpr int MaxTrials = 10000;

} // namespace

PanelState::PanelState(const StrategyDefinition& strategy)
    : m_strategy(strategy)
    , m_controls(strategy.controls.size())
    , m_conditions(m_strategy.edits, EditEvaluation::Empty::IsValue, [this](int control) { return value(control); })
{
    QStringList values;
    for (const StrategyControl& control : strategy.controls)
        values.append(control.initialValue);
    reset(values);
}

void PanelState::reset(const QStringList& initialValues)
{
    m_initialValues = initialValues;
    for (int i = 0; i < m_controls.size(); ++i) {
        m_controls[i] = ControlState();
        m_controls[i].value = initialValues.value(i);
        m_controls[i].held.resize(m_strategy.controls.at(i).stateRules.size());
    }
    settle();
}

void PanelState::enter(int control, const QString& value)
{
    setValue(control, value);
    settle();
}

/// The order is that of dependencies, so every condition is seen after the values that it compares.
void PanelState::settle()
{
    m_conditions.valuesChanged();
    for (const int control : qAsConst(m_strategy.settleOrder))
        settleValue(control);
    for (int i = 0; i < m_controls.size(); ++i)
        show(i);
}

void PanelState::settleValue(int control)
{
    const QList<StateRule>& rules = m_strategy.controls.at(control).stateRules;
    bool isCleared = false;
    QString wanted;
    for (int i = 0; i < rules.size(); ++i) {
        const StateRule& rule = rules.at(i);
        if (!rule.hasValue)
            continue;
        const bool holds = m_conditions.isTrue(rule.edit);
        isCleared = isCleared || (holds && rule.clears());
        if (holds && !m_controls.at(control).held.at(i) && !rule.clears())
            wanted = rule.value;
        m_controls[control].held[i] = holds;
    }
    if (!wanted.isEmpty()) {
        if (m_controls.at(control).isCleared)
            m_controls[control].kept = wanted;
        else
            setValue(control, wanted);
    }
    clear(control, isCleared);
}

void PanelState::clear(int control, bool isCleared)
{
    ControlState& state = m_controls[control];
    if (state.isCleared == isCleared)
        return;
    state.isCleared = isCleared;
    if (isCleared) {
        state.kept = state.value;
        setValue(control, QString());
    } else if (state.value.isEmpty()) {
        setValue(control, state.kept.isEmpty() ? m_initialValues.value(control) : state.kept);
    }
}

void PanelState::setValue(int control, const QString& value)
{
    if (m_controls.at(control).value == value)
        return;
    m_controls[control].value = value;
    m_conditions.valuesChanged();
    const QString key = m_strategy.controls.at(control).radioKey();
    if (key.isEmpty() || value != Yes)
        return;
    for (int i = 0; i < m_controls.size(); ++i) {
        if (i != control && m_strategy.controls.at(i).radioKey() == key)
            m_controls[i].value = No;
    }
}

void PanelState::show(int control)
{
    std::optional<bool> enabled;
    std::optional<bool> visible;
    std::optional<bool> enabledOtherwise;
    std::optional<bool> visibleOtherwise;
    const QList<StateRule>& rules = m_strategy.controls.at(control).stateRules;
    for (const StateRule& rule : rules) {
        if (!rule.enabled && !rule.visible)
            continue;
        const bool holds = m_conditions.isTrue(rule.edit);
        if (rule.enabled)
            (holds ? enabled : enabledOtherwise) = *rule.enabled == holds;
        if (rule.visible)
            (holds ? visible : visibleOtherwise) = *rule.visible == holds;
    }
    m_controls[control].isEnabled = enabled.value_or(enabledOtherwise.value_or(true));
    m_controls[control].isVisible = visible.value_or(visibleOtherwise.value_or(true));
}

void PanelState::load(const QMap<QString, QString>& parameters)
{
    for (int i = 0; i < m_controls.size(); ++i) {
        const StrategyControl& control = m_strategy.controls.at(i);
        const StrategyParameter* const parameter = ControlValue::parameterOf(m_strategy, control);
        if (!parameter)
            continue;
        m_controls[i].value = ControlValue::ofParameter(control, *parameter, parameters.value(control.parameter));
        m_controls[i].kept.clear();
    }
    m_conditions.valuesChanged();
    fitHelpers();
    noteConditions();
}

/// Takes the conditions as they are, without what begins with them: the values were settled when they were stored.
void PanelState::noteConditions()
{
    for (int control = 0; control < m_controls.size(); ++control) {
        ControlState& state = m_controls[control];
        const QList<StateRule>& rules = m_strategy.controls.at(control).stateRules;
        state.isCleared = false;
        for (int i = 0; i < rules.size(); ++i) {
            state.held[i] = m_conditions.isTrue(rules.at(i).edit);
            state.isCleared = state.isCleared || (state.held.at(i) && rules.at(i).clears());
        }
        show(control);
    }
}

/// A plan stores the values of parameters only. A control that served a rule gets another state if more of the loaded
/// values could have been entered with it.
void PanelState::fitHelpers()
{
    QVector<int> helpers;
    int rules = 0;
    for (int i = 0; i < m_controls.size(); ++i) {
        rules += m_strategy.controls.at(i).stateRules.size();
        if (m_strategy.controls.at(i).parameter.isEmpty() && !alternatives(i).isEmpty())
            helpers.append(i);
    }
    if (helpers.size() * rules > MaxTrials)
        return;
    int fewest = misfits();
    for (const int helper : qAsConst(helpers)) {
        const QStringList states = alternatives(helper);
        for (const QString& state : states) {
            if (fewest == 0)
                return;
            const QVector<ControlState> before = m_controls;
            setValue(helper, state);
            const int now = misfits();
            if (now < fewest) {
                fewest = now;
                continue;
            }
            m_controls = before;
            m_conditions.valuesChanged();
        }
    }
}

/// The number of loaded values that the rules would not have let be entered.
int PanelState::misfits()
{
    noteConditions();
    int count = 0;
    for (int i = 0; i < m_controls.size(); ++i) {
        const ControlState& state = m_controls.at(i);
        const StrategyControl& control = m_strategy.controls.at(i);
        const StrategyParameter* const parameter = ControlValue::parameterOf(m_strategy, control);
        if (!parameter || state.value.isEmpty())
            continue;
        const bool isOwn = state.value != m_initialValues.value(i);
        const bool isGone = state.isCleared && !ControlValue::toParameter(control, *parameter, state.value).isEmpty();
        count += isGone || (isOwn && !(state.isEnabled && state.isVisible)) ? 1 : 0;
    }
    return count;
}

QStringList PanelState::alternatives(int control) const
{
    const StrategyControl& own = m_strategy.controls.at(control);
    if (own.isButton())
        return { Yes, No };
    QStringList ids;
    if (own.choosesItems()) {
        for (const EnumeratedValue& item : own.items)
            ids.append(item.id);
    }
    return ids;
}

QMap<QString, QString> PanelState::parameters() const
{
    QStringList values;
    for (const ControlState& control : m_controls)
        values.append(control.value);
    return ControlValue::parameters(m_strategy, values);
}
