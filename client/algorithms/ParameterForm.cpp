#include "ParameterForm.h"

#include "FieldMark.h"
#include "ParameterValue.h"
#include "PlainText.h"
#include "StepInput.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

namespace {

constexpr int Columns = 4;
constexpr int InputWidth = 120;
constexpr int SkinPadding = 8;
/// Opacity of the hints, of 255.
constexpr int HintStrength = 170;

QString unitOf(const StrategyControl& control, const StrategyParameter& parameter)
{
    if (control.unit.isEmpty() && parameter.type == ParameterType::Percentage)
        return QStringLiteral("%");
    return control.unit;
}

QString hintOf(const StrategyParameter& parameter)
{
    QString range = ParameterValue::rangeHint(parameter);
    if (parameter.required || parameter.type == ParameterType::Boolean)
        return range;
    return range.isEmpty() ? QStringLiteral("选填") : QStringLiteral("%1，选填").arg(range);
}

/// What a screen reader says about an input besides its label: purpose, unit and range.
QString descriptionOf(const StrategyControl& control, const StrategyParameter& parameter)
{
    QStringList parts{ control.tooltip, unitOf(control, parameter), hintOf(parameter) };
    parts.removeAll(QString());
    return parts.isEmpty() ? control.label : parts.join(QStringLiteral("，"));
}

QString valueOf(const StrategyParameter& parameter, const QString& id)
{
    for (const EnumeratedValue& value : parameter.values) {
        if (value.id == id)
            return value.text;
    }
    return {};
}

} // namespace

ParameterForm::ParameterForm(const StrategyDefinition& strategy, QWidget* parent)
    : QWidget(parent)
    , m_strategy(strategy)
    , m_grid(new QGridLayout(this))
{
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setColumnStretch(1, 1);
    QString section;
    for (const StrategyControl& control : strategy.controls) {
        if (control.section != section)
            addSection(control.section);
        section = control.section;
        if (const StrategyParameter* const parameter = strategy.parameter(control.parameter))
            addRow(control, *parameter);
    }
    setValues(defaults(strategy));
}

void ParameterForm::setPriceDecimals(int decimals)
{
    for (Row& row : m_rows) {
        const StrategyParameter* const declared = m_strategy.parameter(row.parameter.name);
        if (declared && declared->type == ParameterType::Price && declared->precision < 0)
            row.parameter.precision = decimals;
    }
}

void ParameterForm::setValues(const QMap<QString, QString>& values)
{
    for (const Row& row : qAsConst(m_rows)) {
        if (values.contains(row.parameter.name))
            row.setValue(values.value(row.parameter.name));
    }
}

QMap<QString, QString> ParameterForm::values() const
{
    QMap<QString, QString> result;
    for (const StrategyParameter& parameter : m_strategy.parameters)
        result.insert(parameter.name, parameter.constValue);
    for (const Row& row : m_rows)
        result.insert(row.parameter.name, row.value());
    return result;
}

ParameterForm::Fault ParameterForm::check() const
{
    for (const Row& row : m_rows) {
        if (Status status = check(row); !status)
            return { status, row.parameter.name };
    }
    const QMap<QString, QString> entered = values();
    for (const StrategyRule& rule : m_strategy.rules) {
        if (!ParameterValue::holds(rule, m_strategy, entered))
            return { { Error::RuleBroken, { rule.message } }, rule.field };
    }
    return {};
}

Status ParameterForm::check(const Row& row)
{
    const Status status = ParameterValue::check(row.parameter, row.value());
    if (status)
        return status;
    const QString unit = unitOf(row.control, row.parameter);
    if (unit.isEmpty() || !ParameterValue::isNumber(row.parameter.type))
        return { Error::InvalidInput, { row.control.label }, status };
    return { Error::InvalidInputInUnit, { row.control.label, unit }, status };
}

void ParameterForm::markFault(const QString& parameter)
{
    for (const Row& row : qAsConst(m_rows)) {
        const bool faulty = row.parameter.name == parameter;
        FieldMark::set(row.input, FieldMark::Faulty, faulty);
        if (faulty)
            row.input->setFocus(Qt::OtherFocusReason);
    }
}

QMap<QString, QString> ParameterForm::defaults(const StrategyDefinition& strategy)
{
    QMap<QString, QString> result;
    for (const StrategyControl& control : strategy.controls)
        result.insert(control.parameter, control.initialValue);
    return result;
}

void ParameterForm::addSection(const QString& title)
{
    QLabel* const heading = PlainText::newLabel(title, this);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    m_grid->addWidget(heading, m_grid->rowCount(), 0, 1, Columns);
}

void ParameterForm::addRow(const StrategyControl& control, const StrategyParameter& parameter)
{
    Row row;
    row.parameter = parameter;
    row.control = control;
    makeInput(row);
    row.input->setObjectName(QStringLiteral("input_") + parameter.name);
    row.input->setToolTip(PlainText::toolTip(control.tooltip));
    row.input->setAccessibleName(control.label);
    row.input->setAccessibleDescription(descriptionOf(control, parameter));
    row.input->setMinimumWidth(qMax(InputWidth, row.input->minimumWidth()));
    if (!row.lastFocus)
        row.lastFocus = row.input;

    QLabel* const label = PlainText::newLabel(control.label, this);
    label->setBuddy(row.input);
    const int line = m_grid->rowCount();
    m_grid->addWidget(label, line, 0);
    m_grid->addWidget(row.input, line, 1);
    addRemarks(row, line);
    m_rows.append(row);
}

void ParameterForm::addRemarks(const Row& row, int line)
{
    QLabel* const unit = PlainText::newLabel(unitOf(row.control, row.parameter), this);
    unit->setObjectName(QStringLiteral("unit_") + row.parameter.name);
    m_grid->addWidget(unit, line, 2);

    QLabel* const hint = PlainText::newLabel(hintOf(row.parameter), this);
    hint->setObjectName(QStringLiteral("hint_") + row.parameter.name);
    QPalette faint = hint->palette();
    QColor ink = faint.color(QPalette::WindowText);
    ink.setAlpha(HintStrength);
    faint.setColor(QPalette::WindowText, ink);
    hint->setPalette(faint);
    m_grid->addWidget(hint, line, 3);
}

void ParameterForm::makeInput(Row& row)
{
    switch (row.control.type) {
    case ControlType::TextField:
        return makeText(row);
    case ControlType::SingleSpinner:
    case ControlType::DoubleSpinner:
    case ControlType::Clock:
        return makeStepper(row);
    case ControlType::DropDownList:
        return makeDropDown(row);
    case ControlType::RadioButtonList:
        return makeRadioButtons(row);
    case ControlType::CheckBox:
        return makeCheckBox(row);
    }
}

void ParameterForm::makeText(Row& row)
{
    auto* const edit = new QLineEdit(this);
    row.input = edit;
    row.value = [edit, parameter = row.parameter] { return ParameterValue::entered(parameter, edit->text()); };
    row.setValue = [edit, parameter = row.parameter](
                       const QString& value) { edit->setText(ParameterValue::shown(parameter, value)); };
}

void ParameterForm::makeStepper(Row& row)
{
    auto* const stepper = new StepInput(row.control, row.parameter, this);
    row.input = stepper;
    row.value = [stepper, parameter = row.parameter] { return ParameterValue::entered(parameter, stepper->text()); };
    row.setValue = [stepper, parameter = row.parameter](
                       const QString& value) { stepper->setText(ParameterValue::shown(parameter, value)); };
}

void ParameterForm::makeDropDown(Row& row)
{
    auto* const box = new QComboBox(this);
    if (!row.parameter.required)
        box->addItem(QString(), QString());
    for (const EnumeratedValue& item : qAsConst(row.control.items))
        box->addItem(item.text, valueOf(row.parameter, item.id));
    // The size hint does not include a skin's padding.
    box->setMinimumWidth(qMax(InputWidth, box->sizeHint().width() + SkinPadding));
    row.input = box;
    row.value = [box] { return box->currentData().toString(); };
    row.setValue = [box](const QString& value) { box->setCurrentIndex(box->findData(value)); };
}

void ParameterForm::makeRadioButtons(Row& row)
{
    row.input = new QWidget(this);
    auto* const line = new QHBoxLayout(row.input);
    line->setContentsMargins(0, 0, 0, 0);
    auto* const group = new QButtonGroup(row.input);
    QStringList offered;
    for (const EnumeratedValue& item : qAsConst(row.control.items)) {
        auto* const button = new QRadioButton(item.text, row.input);
        button->setAccessibleDescription(row.control.label);
        line->addWidget(button);
        row.lastFocus = button;
        group->addButton(button, offered.size());
        offered.append(valueOf(row.parameter, item.id));
    }
    if (!group->buttons().isEmpty())
        row.input->setFocusProxy(group->buttons().constFirst());
    row.value = [group, offered] { return offered.value(group->checkedId()); };
    row.setValue = [group, offered](const QString& value) {
        group->setExclusive(false);
        const QList<QAbstractButton*> buttons = group->buttons();
        for (QAbstractButton* const button : buttons)
            button->setChecked(offered.value(group->id(button)) == value);
        group->setExclusive(true);
    };
}

void ParameterForm::makeCheckBox(Row& row)
{
    auto* const box = new QCheckBox(this);
    row.input = box;
    row.value = [box, yes = row.parameter.trueValue, no = row.parameter.falseValue] {
        return box->isChecked() ? yes : no;
    };
    row.setValue = [box, yes = row.parameter.trueValue](const QString& value) { box->setChecked(value == yes); };
}
