#include "FieldUnit.h"

namespace {

FieldUnit* sourceOf(const QWidget* field)
{
    return field->findChild<FieldUnit*>(QString(), Qt::FindDirectChildrenOnly);
}

} // namespace

FieldUnit::FieldUnit(const Source& source, QWidget* field)
    : QObject(field)
    , m_source(source)
{
}

void FieldUnit::provide(QWidget* field, const Source& source)
{
    delete sourceOf(field);
    new FieldUnit(source, field);
}

NumberUnit FieldUnit::of(const QWidget* field)
{
    const FieldUnit* const unit = sourceOf(field);
    return unit ? unit->m_source() : NumberUnit();
}
