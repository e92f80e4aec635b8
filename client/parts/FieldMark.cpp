#include "FieldMark.h"

#include "PlainText.h"

#include <QLineEdit>
#include <QPalette>
#include <QStyle>
#include <QVariant>
#include <QWidget>

namespace {

constexpr auto RefusedInput = "refusedInput";

} // namespace

QColor FieldMark::colour()
{
    return { 0xd0, 0x30, 0x30 };
}

void FieldMark::set(QWidget* field, const char* property, bool isMarked)
{
    if (isSet(field, property) == isMarked)
        return;
    field->setProperty(property, isMarked);
    QPalette colours;
    if (isSet(field, Refused) || isSet(field, Faulty)) {
        colours = field->palette();
        for (const QPalette::ColorRole role : { QPalette::Text, QPalette::WindowText, QPalette::ButtonText })
            colours.setColor(role, colour());
    }
    field->setPalette(colours);
    // A skin reads the property only then.
    field->style()->unpolish(field);
    field->style()->polish(field);
    // The font of a rule that does not apply any more would stay in the line edit within the field.
    if (auto* const line = field->findChild<QLineEdit*>(); line && !field->property(property).toBool())
        line->setFont(QFont());
    field->update();
}

bool FieldMark::isSet(const QWidget* field, const char* property)
{
    return field->property(property).toBool();
}

void FieldMark::refuseInput(QWidget* field, const QString& reason)
{
    field->setProperty(RefusedInput, reason);
    field->setToolTip(PlainText::toolTip(reason));
}

QString FieldMark::refusedInput(const QWidget* field)
{
    return field->property(RefusedInput).toString();
}
