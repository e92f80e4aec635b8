#include "ParameterForm.h"

#include "ControlValue.h"
#include "FieldMark.h"
#include "MarketTime.h"
#include "PanelBox.h"
#include "ParameterTypes.h"
#include "ParameterValue.h"
#include "PlainText.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QScopedValueRollback>

#include <algorithm>
#include <optional>

namespace {

constexpr int Columns = 4;
constexpr int InputWidth = 120;
/// Opacity of the hints, of 255.
constexpr int HintStrength = 170;

QString unitOf(const StrategyControl& control, const StrategyParameter& parameter)
{
    if (!control.unit.isEmpty() || control.choosesItems())
        return control.unit;
    if (parameter.type == ParameterType::Percentage)
        return QStringLiteral("%");
    return control.type == ControlType::Clock ? QString::fromUtf8(parameter.zone) : QString();
}

QString hintOf(const StrategyParameter& parameter)
{
    QString range = ParameterValue::rangeHint(parameter);
    if (parameter.required || parameter.type == ParameterType::Boolean || parameter.name.isEmpty())
        return range;
    return range.isEmpty() ? ParameterForm::tr("选填") : ParameterForm::tr("%1，选填").arg(range);
}

/// What a control is called where it has no label of its own.
QString nameOf(const StrategyControl& control)
{
    if (!control.label.isEmpty())
        return control.label;
    return control.parameter.isEmpty() ? control.id : control.parameter;
}

/// What a screen reader says about an input besides its label: purpose, unit and range.
QString descriptionOf(const StrategyControl& control, const StrategyParameter& parameter)
{
    QStringList parts{ control.tooltip, unitOf(control, parameter), hintOf(parameter), control.helpText };
    parts.removeAll(QString());
    return parts.isEmpty() ? nameOf(control) : parts.join(ParameterForm::tr("，"));
}

QString objectNameOf(const StrategyControl& control)
{
    const bool isShared = control.type == ControlType::RadioButton;
    return control.parameter.isEmpty() || isShared ? control.id : control.parameter;
}

QStringList initialValues(const StrategyDefinition& strategy)
{
    QStringList values;
    for (const StrategyControl& control : strategy.controls) {
        const StrategyParameter* const parameter = ControlValue::parameterOf(strategy, control);
        const QString now = MarketTime::toText(MarketTime::now(parameter ? parameter->zone : control.zone));
        const bool hasPassed = control.isNowIfPassed && !control.initialValue.isEmpty() && control.initialValue < now;
        values.append(hasPassed ? now : control.initialValue);
    }
    return values;
}

/// Qt lays out all rows again for each widget that appears. Until this object ends, it waits.
class LayoutPause {
public:
    explicit LayoutPause(QWidget* form)
        : m_layouts(form->findChildren<QLayout*>())
        , m_form(form)
    {
        setEnabled(false);
    }
    ~LayoutPause()
    {
        setEnabled(true);
        m_form->layout()->activate();
    }
    Q_DISABLE_COPY(LayoutPause)

private:
    void setEnabled(bool isEnabled) const
    {
        for (QLayout* const layout : m_layouts)
            layout->setEnabled(isEnabled);
    }

    QList<QLayout*> m_layouts;
    QWidget* m_form;
};

void setVisibleRow(const ControlInput& input, bool isVisible)
{
    for (QWidget* const part : input.row)
        part->setVisible(isVisible);
}

} // namespace

ParameterForm::ParameterForm(const StrategyDefinition& strategy, QWidget* parent)
    : QWidget(parent)
    , m_strategy(strategy)
    , m_state(strategy)
{
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setColumnStretch(1, 1);
    m_inputs.reserve(strategy.controls.size());
    if (!strategy.panels.isEmpty())
        fillPanel(m_strategy.panels.constFirst(), grid, this);
    m_state.reset(initialValues(m_strategy));
    showState();
}

void ParameterForm::fillPanel(const StrategyPanel& panel, QGridLayout* grid, QWidget* owner)
{
    if (panel.direction == LayoutDirection::Horizontal)
        fillHorizontally(panel, grid, owner);
    else
        fillVertically(panel, grid, owner);
}

void ParameterForm::fillVertically(const StrategyPanel& panel, QGridLayout* grid, QWidget* owner)
{
    for (const PanelItem& item : panel.items)
        addItem(item, grid, owner);
}

/// Every part has columns of its own.
void ParameterForm::fillHorizontally(const StrategyPanel& panel, QGridLayout* grid, QWidget* owner)
{
    auto* const line = new QHBoxLayout;
    grid->addLayout(line, grid->rowCount(), 0, 1, Columns);
    for (const PanelItem& item : panel.items) {
        auto* const part = new QWidget(owner);
        auto* const inner = new QGridLayout(part);
        inner->setContentsMargins(0, 0, 0, 0);
        inner->setColumnStretch(1, 1);
        line->addWidget(part, 1, Qt::AlignTop);
        addItem(item, inner, part);
    }
}

void ParameterForm::addItem(const PanelItem& item, QGridLayout* grid, QWidget* owner)
{
    if (item.isPanel)
        addPanel(m_strategy.panels.at(item.index), grid, owner);
    else
        addControl(item.index, grid, owner);
}

void ParameterForm::addPanel(const StrategyPanel& panel, QGridLayout* grid, QWidget* owner)
{
    if (!panel.isCollapsible && !panel.hasBorder) {
        addHeading(panel.title, grid, owner);
        return fillPanel(panel, grid, owner);
    }
    auto* const box = new PanelBox(panel, owner);
    grid->addWidget(box, grid->rowCount(), 0, 1, Columns);
    fillPanel(panel, box->grid(), box->contents());
}

void ParameterForm::addHeading(const QString& title, QGridLayout* grid, QWidget* owner)
{
    if (title.isEmpty())
        return;
    QLabel* const heading = PlainText::newLabel(title, owner);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    grid->addWidget(heading, grid->rowCount(), 0, 1, Columns);
}

void ParameterForm::addControl(int control, QGridLayout* grid, QWidget* owner)
{
    const int index = m_inputs.size();
    ControlInput input = ControlInputs::make(m_strategy, control, owner, [this, index] { takeInput(index); });
    if (input.widget) {
        describe(input);
        addRow(input, grid, owner);
    }
    m_inputs.append(input);
}

void ParameterForm::describe(const ControlInput& input) const
{
    const StrategyControl& control = m_strategy.controls.at(input.control);
    input.widget->setObjectName(QStringLiteral("input_") + objectNameOf(control));
    input.widget->setToolTip(PlainText::toolTip(control.tooltip));
    input.widget->setWhatsThis(PlainText::toolTip(control.helpText));
    if (!input.isInput())
        return;
    input.widget->setAccessibleName(nameOf(control));
    input.widget->setAccessibleDescription(descriptionOf(control, input.parameter));
    input.widget->setMinimumWidth(qMax(InputWidth, input.widget->minimumWidth()));
}

void ParameterForm::addRow(ControlInput& input, QGridLayout* grid, QWidget* owner)
{
    const StrategyControl& control = m_strategy.controls.at(input.control);
    const int line = grid->rowCount();
    input.row.append(input.widget);
    if (!input.isInput() && !ControlInputs::isLabelOfValue(control)) {
        grid->addWidget(input.widget, line, 0, 1, Columns);
        return;
    }
    QLabel* const label = PlainText::newLabel(control.label, owner);
    label->setBuddy(input.widget);
    grid->addWidget(label, line, 0);
    grid->addWidget(input.widget, line, 1);
    QLabel* const unit = PlainText::newLabel(unitOf(control, input.parameter), owner);
    unit->setObjectName(QStringLiteral("unit_") + objectNameOf(control));
    grid->addWidget(unit, line, 2);
    input.row << label << unit;
    if (input.isInput())
        addHint(input, grid, owner);
}

void ParameterForm::addHint(ControlInput& input, QGridLayout* grid, QWidget* owner)
{
    const StrategyControl& control = m_strategy.controls.at(input.control);
    QLabel* const hint = PlainText::newLabel(hintOf(input.parameter), owner);
    hint->setObjectName(QStringLiteral("hint_") + objectNameOf(control));
    QPalette faint = hint->palette();
    QColor ink = faint.color(QPalette::WindowText);
    ink.setAlpha(HintStrength);
    faint.setColor(QPalette::WindowText, ink);
    hint->setPalette(faint);
    grid->addWidget(hint, grid->rowCount() - 1, 3);
    input.row << hint;
}

void ParameterForm::setSecurity(int lot, int decimals)
{
    for (ControlInput& input : m_inputs) {
        const StrategyParameter* const declared = m_strategy.parameter(input.parameter.name);
        if (declared && declared->type == ParameterType::Price && declared->precision < 0)
            input.parameter.precision = decimals;
        if (input.setSteps)
            input.setSteps(lot, decimals);
    }
}

void ParameterForm::setOrderFields(const QMap<QString, QString>& fields)
{
    for (const ControlInput& input : qAsConst(m_inputs)) {
        const StrategyControl& control = m_strategy.controls.at(input.control);
        const QString text = control.initFixField.isEmpty() ? QString() : fields.value(control.initFixField);
        if (text.isEmpty() || input.isEntered || m_state.value(input.control) != control.initialValue)
            continue;
        if (const Result<QString> value = ControlValue::read(control, &input.parameter, text))
            m_state.enter(input.control, *value);
    }
    showState();
}

void ParameterForm::setValues(const QMap<QString, QString>& values)
{
    const auto isGiven = [&](const StrategyParameter& parameter) { return values.contains(parameter.name); };
    const bool isPlan = std::all_of(m_strategy.parameters.cbegin(), m_strategy.parameters.cend(), isGiven);
    if (isPlan)
        m_state.load(values);
    for (ControlInput& input : m_inputs) {
        if (input.parameter.name.isEmpty() || !isGiven(input.parameter))
            continue;
        input.isEntered = true;
        if (!isPlan)
            m_state.enter(input.control,
                ControlValue::ofParameter(
                    m_strategy.controls.at(input.control), input.parameter, values.value(input.parameter.name)));
    }
    showState();
}

void ParameterForm::takeInput(int input)
{
    if (m_isShowing)
        return;
    ControlInput& own = m_inputs[input];
    own.shown = own.value();
    own.isEntered = true;
    m_state.enter(own.control, own.shown);
    showState();
}

/// Touches only what has changed.
void ParameterForm::showState()
{
    const QScopedValueRollback<bool> rollback(m_isShowing, true);
    std::optional<LayoutPause> pause;
    for (ControlInput& input : m_inputs) {
        if (!input.widget)
            continue;
        const QString value = m_state.value(input.control);
        if (input.shown != value) {
            input.setValue(value);
            input.shown = value;
        }
        if (input.widget->isEnabled() != m_state.isEnabled(input.control))
            input.widget->setEnabled(m_state.isEnabled(input.control));
        if (input.widget->isHidden() != m_state.isVisible(input.control))
            continue;
        if (!pause)
            pause.emplace(this);
        setVisibleRow(input, m_state.isVisible(input.control));
    }
}

ParameterForm::Fault ParameterForm::check() const
{
    const QMap<QString, QString> entered = values();
    for (const ControlInput& input : m_inputs) {
        if (input.parameter.name.isEmpty())
            continue;
        if (Status status = check(input, entered.value(input.parameter.name)); !status)
            return { status, input.parameter.name };
    }
    if (const StrategyRule* const rule = StrategyRules::firstBroken(m_strategy, entered))
        return { { Error::RuleBroken, { rule->message } }, StrategyRules::firstParameter(m_strategy, *rule) };
    return {};
}

Status ParameterForm::check(const ControlInput& input, const QString& value) const
{
    const Status status = ParameterValue::check(input.parameter, value);
    if (status)
        return status;
    const StrategyControl& control = m_strategy.controls.at(input.control);
    const QString unit = unitOf(control, input.parameter);
    if (unit.isEmpty() || !ParameterTypes::isNumber(input.parameter.type))
        return { Error::InvalidInput, { nameOf(control) }, status };
    return { Error::InvalidInputInUnit, { nameOf(control), unit }, status };
}

QWidget* ParameterForm::lastInput() const
{
    const auto last =
        std::find_if(m_inputs.crbegin(), m_inputs.crend(), [](const ControlInput& input) { return input.isInput(); });
    return last == m_inputs.crend() ? nullptr : last->lastFocus;
}

void ParameterForm::markFault(const QString& parameter)
{
    for (const ControlInput& input : qAsConst(m_inputs)) {
        if (!input.isInput())
            continue;
        const bool faulty = !parameter.isEmpty() && input.parameter.name == parameter;
        FieldMark::set(input.widget, FieldMark::Faulty, faulty);
        if (!faulty)
            continue;
        for (QWidget* owner = input.widget->parentWidget(); owner && owner != this; owner = owner->parentWidget()) {
            if (auto* const box = qobject_cast<PanelBox*>(owner))
                box->expand();
        }
        input.widget->setFocus(Qt::OtherFocusReason);
    }
}
