#include "FormInputs.h"

#include "FieldMark.h"
#include "FieldUnit.h"
#include "OrloBusinessDataInterface.h"
#include "OrloDecimalLineEdit.h"
#include "VorSearchBox.h"

#include <QLabel>

namespace {

void provideUnit(const QWidget& form, const char* field, const char* unit)
{
    const auto* const security = form.findChild<VorSearchBox*>(QStringLiteral("le_symbol"));
    const auto* const label = form.findChild<QLabel*>(QLatin1String(unit));
    FieldUnit::provide(form.findChild<OrloDecimalLineEdit*>(QLatin1String(field)), [security, label] {
        return NumberUnit{ label->text(), OrloBusinessDataInterface::GetQtyStepBySymbol(security->getSymbol()) };
    });
}

} // namespace

void FormInputs::provideUnits(const QWidget& form)
{
    provideUnit(form, "le_targetTotalNum", "lab_targetTotalNumUnit");
    provideUnit(form, "le_entrustMaxNum", "lab_entrustMaxNumUnit");
}

QWidget* FormInputs::refusedField(const QWidget& form)
{
    for (QWidget* next = form.nextInFocusChain(); next != &form; next = next->nextInFocusChain()) {
        if (form.isAncestorOf(next) && next->isVisible() && !FieldMark::refusedInput(next).isEmpty())
            return next;
    }
    return nullptr;
}

Status FormInputs::checkTyped(const QWidget& form)
{
    const QWidget* const field = refusedField(form);
    return field ? Status(Error::InputRefused, { field->accessibleName(), FieldMark::refusedInput(field) }) : Status();
}
