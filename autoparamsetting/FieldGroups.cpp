#include "FieldGroups.h"

#include "ui_AutoParamSetting.h"

FieldGroups::Group FieldGroups::identity(const Ui::AutoParamSetting& ui)
{
    return { ui.combx_fundAccount, ui.combx_instructionType, ui.combx_instructionTargetType, ui.combx_planType,
        ui.le_symbol, ui.combx_tradeSide, ui.combx_entrustType };
}

FieldGroups::Group FieldGroups::execution(const Ui::AutoParamSetting& ui)
{
    return { ui.combx_instructionMode, ui.combx_assignTo };
}

FieldGroups::Group FieldGroups::ordinaryRows(const Ui::AutoParamSetting& ui)
{
    return { ui.la_entrustMaxNum, ui.le_entrustMaxNum, ui.lab_entrustMaxNumUnit, ui.lab_targetTotalNumUnit };
}

FieldGroups::Group FieldGroups::reductionRows(const Ui::AutoParamSetting& ui)
{
    return { ui.la_reduceHRatio, ui.le_reduceHRatio, ui.la_reduceHMode, ui.combx_reduceHMode };
}

FieldGroups::Group FieldGroups::hongKongRow(const Ui::AutoParamSetting& ui)
{
    return { ui.la_priceType, ui.combx_priceType };
}

FieldGroups::Group FieldGroups::creditRow(const Ui::AutoParamSetting& ui)
{
    return { ui.la_entrustType, ui.combx_entrustType };
}

void FieldGroups::setVisible(const Group& group, bool visible)
{
    for (QWidget* const widget : group)
        widget->setVisible(visible);
}

void FieldGroups::disable(const Group& group)
{
    for (QWidget* const field : group)
        field->setEnabled(false);
}

void FieldGroups::enable(QWidget* field)
{
    if (auto* const box = dynamic_cast<OrloComboBox*>(field))
        box->ResetEnable();
    else
        field->setEnabled(true);
}

void FieldGroups::enable(const Group& group)
{
    for (QWidget* const field : group)
        enable(field);
}
