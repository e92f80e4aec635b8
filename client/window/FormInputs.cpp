#include "FormInputs.h"

#include "FieldMark.h"
#include "FieldUnit.h"
#include "OrloBusinessDataInterface.h"
#include "OrloDecimalLineEdit.h"
#include "OrloDoubleSpinBox.h"
#include "VorSearchBox.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

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

QStringList FormInputs::contents(const QWidget& form)
{
    QStringList texts;
    const QList<QComboBox*> boxes = form.findChildren<QComboBox*>();
    const QList<QLineEdit*> inputs = form.findChildren<QLineEdit*>();
    for (const QComboBox* box : boxes)
        texts << box->objectName() + QLatin1Char('=') + box->currentText();
    for (const QLineEdit* line : inputs) {
        // A number is shown in other forms with and without the focus.
        const auto* const number = qobject_cast<OrloDoubleSpinBox*>(line->parent());
        const bool isNumber = number && !number->GetStrValue().isEmpty();
        texts << line->parent()->objectName() + QLatin1Char('=') + (isNumber ? number->GetStrValue() : line->text());
    }
    return texts;
}
