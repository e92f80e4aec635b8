#include "Status.h"

Status::Status(Error error, QStringList details)
    : m_error(error)
    , m_details(std::move(details))
{
}

Status::Status(Error error, QStringList details, const Status& cause)
    : m_error(error)
    , m_details(std::move(details))
    , m_cause(new Status(cause))
{
}

bool Status::operator==(const Status& other) const
{
    if (m_error != other.m_error || m_details != other.m_details || !m_cause != !other.m_cause)
        return false;
    return !m_cause || *m_cause == *other.m_cause;
}
