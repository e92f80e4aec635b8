#include "ChoiceInputs.h"

#include "ParameterValue.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>

namespace {

constexpr int SkinPadding = 8;
constexpr int VisibleRows = 5;
const QChar Space = QLatin1Char(' ');

void makeDropDown(
    ControlInput& input, const StrategyControl& control, QWidget* parent, const std::function<void()>& changed)
{
    auto* const box = new QComboBox(parent);
    if (!input.parameter.required)
        box->addItem(QString(), QString());
    for (const EnumeratedValue& item : control.items)
        box->addItem(item.text, item.id);
    box->setCurrentIndex(-1);
    // The size hint does not include a skin's padding.
    box->setMinimumWidth(box->sizeHint().width() + SkinPadding);
    QObject::connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), box, changed);
    input.widget = box;
    input.value = [box] { return box->currentData().toString(); };
    input.setValue = [box](const QString& value) { box->setCurrentIndex(box->findData(value)); };
}

void makeEditable(
    ControlInput& input, const StrategyControl& control, QWidget* parent, const std::function<void()>& changed)
{
    auto* const box = new QComboBox(parent);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    for (const EnumeratedValue& item : control.items)
        box->addItem(item.text, item.id);
    box->setCurrentIndex(-1);
    box->setMinimumWidth(box->sizeHint().width() + SkinPadding);
    QObject::connect(box, &QComboBox::editTextChanged, box, changed);
    input.widget = box;
    // The text of an entry means the entry.
    input.value = [box, parameter = input.parameter] {
        const int entry = box->findText(box->currentText().trimmed(), Qt::MatchExactly | Qt::MatchCaseSensitive);
        return entry < 0 ? ParameterValue::entered(parameter, box->currentText()) : box->itemData(entry).toString();
    };
    input.setValue = [box, parameter = input.parameter](const QString& value) {
        const int entry = box->findData(value);
        box->setCurrentIndex(entry);
        box->setEditText(entry < 0 ? ParameterValue::shown(parameter, value) : box->itemText(entry));
    };
}

void makeList(
    ControlInput& input, const StrategyControl& control, QWidget* parent, const std::function<void()>& changed)
{
    auto* const list = new QListWidget(parent);
    list->setSelectionMode(
        control.isMultiple() ? QAbstractItemView::MultiSelection : QAbstractItemView::SingleSelection);
    list->setTabKeyNavigation(false);
    for (const EnumeratedValue& item : control.items) {
        auto* const row = new QListWidgetItem(item.text, list);
        row->setData(Qt::UserRole, item.id);
    }
    const int rows = qBound(1, list->count(), VisibleRows);
    list->setFixedHeight(rows * qMax(list->sizeHintForRow(0), list->fontMetrics().height()) + 2 * SkinPadding);
    QObject::connect(list, &QListWidget::itemSelectionChanged, list, changed);
    input.widget = list;
    input.value = [list] {
        QStringList ids;
        for (int i = 0; i < list->count(); ++i) {
            if (list->item(i)->isSelected())
                ids.append(list->item(i)->data(Qt::UserRole).toString());
        }
        return ids.join(Space);
    };
    input.setValue = [list, isMultiple = control.isMultiple()](const QString& value) {
        const QStringList ids = isMultiple ? value.split(Space) : QStringList{ value };
        for (int i = 0; i < list->count(); ++i)
            list->item(i)->setSelected(ids.contains(list->item(i)->data(Qt::UserRole).toString()));
    };
}

QBoxLayout* newButtonLayout(const StrategyControl& control, QWidget* owner)
{
    const bool isVertical = control.direction == LayoutDirection::Vertical;
    auto* const layout = new QBoxLayout(isVertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, owner);
    layout->setContentsMargins(0, 0, 0, 0);
    return layout;
}

template <typename Button>
QList<QAbstractButton*> addButtons(ControlInput& input, const StrategyControl& control, QWidget* parent)
{
    input.widget = new QWidget(parent);
    QBoxLayout* const layout = newButtonLayout(control, input.widget);
    QList<QAbstractButton*> buttons;
    for (const EnumeratedValue& item : control.items) {
        auto* const button = new Button(item.text, input.widget);
        button->setAccessibleDescription(control.label);
        layout->addWidget(button);
        buttons.append(button);
    }
    if (!buttons.isEmpty())
        input.widget->setFocusProxy(buttons.constFirst());
    input.lastFocus = buttons.isEmpty() ? input.widget : buttons.constLast();
    return buttons;
}

void makeRadioButtons(
    ControlInput& input, const StrategyControl& control, QWidget* parent, const std::function<void()>& changed)
{
    const QList<QAbstractButton*> buttons = addButtons<QRadioButton>(input, control, parent);
    auto* const group = new QButtonGroup(input.widget);
    QStringList ids;
    for (QAbstractButton* const button : buttons) {
        group->addButton(button, ids.size());
        ids.append(control.items.at(ids.size()).id);
        QObject::connect(button, &QAbstractButton::toggled, button, changed);
    }
    input.value = [group, ids] { return ids.value(group->checkedId()); };
    input.setValue = [group, ids](const QString& value) {
        group->setExclusive(false);
        const QList<QAbstractButton*> all = group->buttons();
        for (QAbstractButton* const button : all)
            button->setChecked(ids.value(group->id(button)) == value);
        group->setExclusive(true);
    };
}

void makeCheckBoxes(
    ControlInput& input, const StrategyControl& control, QWidget* parent, const std::function<void()>& changed)
{
    const QList<QAbstractButton*> buttons = addButtons<QCheckBox>(input, control, parent);
    QStringList ids;
    for (QAbstractButton* const button : buttons) {
        ids.append(control.items.at(ids.size()).id);
        QObject::connect(button, &QAbstractButton::toggled, button, changed);
    }
    input.value = [buttons, ids] {
        QStringList checked;
        for (int i = 0; i < buttons.size(); ++i) {
            if (buttons.at(i)->isChecked())
                checked.append(ids.at(i));
        }
        return checked.join(Space);
    };
    input.setValue = [buttons, ids](const QString& value) {
        const QStringList checked = value.split(Space);
        for (int i = 0; i < buttons.size(); ++i)
            buttons.at(i)->setChecked(checked.contains(ids.at(i)));
    };
}

} // namespace

void ChoiceInputs::make(
    ControlInput& input, const StrategyControl& control, QWidget* parent, const std::function<void()>& changed)
{
    switch (control.type) {
    case ControlType::EditableDropDownList:
        return makeEditable(input, control, parent, changed);
    case ControlType::SingleSelectList:
    case ControlType::MultiSelectList:
        return makeList(input, control, parent, changed);
    case ControlType::RadioButtonList:
        return makeRadioButtons(input, control, parent, changed);
    case ControlType::CheckBoxList:
        return makeCheckBoxes(input, control, parent, changed);
    default:
        return makeDropDown(input, control, parent, changed);
    }
}
