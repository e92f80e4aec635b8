#include "PlanRequests.h"

#include <QUuid>

QString PlanRequests::newId()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

QString PlanRequests::idOf(const PlanStore::Record& record) const
{
    return !m_id.isEmpty() && record == m_record ? m_id : newId();
}

void PlanRequests::keep(const QString& id, const PlanStore::Record& record)
{
    m_id = id;
    m_record = record;
}

void PlanRequests::clear()
{
    m_id.clear();
    m_record.clear();
}
