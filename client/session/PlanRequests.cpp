#include "PlanRequests.h"

#include <QUuid>

QString PlanRequests::newId()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

QString PlanRequests::idOf(const PlanStore::Record& record) const
{
    return m_records.key(record, newId());
}
