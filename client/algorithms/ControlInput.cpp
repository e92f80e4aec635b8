#include "ControlInput.h"

#include "ChoiceInputs.h"
#include "ControlValue.h"
#include "ParameterValue.h"
#include "PlainText.h"
#include "SliderInput.h"
#include "StepInput.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

namespace {

/// What the values of a control without a parameter are.
StrategyParameter parameterOf(const StrategyDefinition& strategy, const StrategyControl& control)
{
    if (const StrategyParameter* const parameter = ControlValue::parameterOf(strategy, control))
        return *parameter;
    StrategyParameter parameter;
    if (control.isSpinner() || control.type == ControlType::Slider)
        parameter.type = ParameterType::Float;
    if (control.type == ControlType::Clock)
        parameter.type = ParameterType::LocalTime;
    return parameter;
}

void makeText(ControlInput& input, QWidget* parent, const std::function<void()>& changed)
{
    auto* const edit = new QLineEdit(parent);
    QObject::connect(edit, &QLineEdit::textChanged, edit, changed);
    input.widget = edit;
    input.value = [edit, parameter = input.parameter] { return ParameterValue::entered(parameter, edit->text()); };
    input.setValue = [edit, parameter = input.parameter](
                         const QString& value) { edit->setText(ParameterValue::shown(parameter, value)); };
}

void makeStepper(
    ControlInput& input, const StrategyControl& control, QWidget* parent, const std::function<void()>& changed)
{
    auto* const stepper = new StepInput(control, input.parameter, parent);
    QObject::connect(stepper, &StepInput::textChanged, stepper, changed);
    input.widget = stepper;
    input.value = [stepper, parameter = input.parameter] {
        return ParameterValue::entered(parameter, stepper->text());
    };
    input.setValue = [stepper, parameter = input.parameter](
                         const QString& value) { stepper->setText(ParameterValue::shown(parameter, value)); };
    input.setSteps = [stepper](int lot, int decimals) { stepper->setSecurity(lot, decimals); };
}

void makeSlider(
    ControlInput& input, const StrategyControl& control, QWidget* parent, const std::function<void()>& changed)
{
    if (!SliderInput::isPossible(control, input.parameter))
        return makeStepper(input, control, parent, changed);
    auto* const slider = new SliderInput(control, input.parameter, parent);
    QObject::connect(slider, &SliderInput::valueChanged, slider, changed);
    input.widget = slider;
    input.value = [slider] { return slider->value(); };
    input.setValue = [slider](const QString& value) { slider->setValue(value); };
}

void makeButton(ControlInput& input, QAbstractButton* button, const std::function<void()>& changed)
{
    QObject::connect(button, &QAbstractButton::toggled, button, changed);
    input.widget = button;
    input.value = [button] { return button->isChecked() ? QStringLiteral("true") : QStringLiteral("false"); };
    input.setValue = [button](const QString& value) { button->setChecked(value == QLatin1String("true")); };
}

/// The panel's state unchecks the others of a group.
QRadioButton* newRadioButton(QWidget* parent)
{
    auto* const button = new QRadioButton(parent);
    button->setAutoExclusive(false);
    return button;
}

void makeLabel(ControlInput& input, const StrategyControl& control, QWidget* parent)
{
    auto* const label = PlainText::newLabel(QString(), parent);
    label->setWordWrap(true);
    input.widget = label;
    const QString value = control.initialValue;
    input.value = [value] { return value; };
    const QString own = ControlInputs::isLabelOfValue(control) ? QString() : control.label;
    input.setValue = [label, own, parameter = input.parameter](const QString& text) {
        label->setText(text.isEmpty() ? own : ParameterValue::shown(parameter, text));
    };
    input.setValue(value);
}

} // namespace

bool ControlInputs::isLabelOfValue(const StrategyControl& control)
{
    return !control.label.isEmpty() && !(control.initialValue.isEmpty() && control.parameter.isEmpty());
}

ControlInput ControlInputs::make(
    const StrategyDefinition& strategy, int control, QWidget* parent, const std::function<void()>& changed)
{
    const StrategyControl& own = strategy.controls.at(control);
    ControlInput input;
    input.control = control;
    input.parameter = parameterOf(strategy, own);
    switch (own.type) {
    case ControlType::HiddenField:
        return input;
    case ControlType::Label:
        makeLabel(input, own, parent);
        return input;
    case ControlType::TextField:
        makeText(input, parent, changed);
        break;
    case ControlType::SingleSpinner:
    case ControlType::DoubleSpinner:
    case ControlType::Clock:
        makeStepper(input, own, parent, changed);
        break;
    case ControlType::Slider:
        makeSlider(input, own, parent, changed);
        break;
    case ControlType::CheckBox:
        makeButton(input, new QCheckBox(parent), changed);
        break;
    case ControlType::RadioButton:
        makeButton(input, newRadioButton(parent), changed);
        break;
    default:
        ChoiceInputs::make(input, own, parent, changed);
        break;
    }
    if (!input.lastFocus)
        input.lastFocus = input.widget;
    return input;
}
