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
