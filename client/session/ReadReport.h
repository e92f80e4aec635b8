#pragma once

#include "PlanEvents.h"

/// Logs a failed read that the caller cannot return, see `PlanEvents::report`.
inline void reportFailure(const Status& read)
{
    if (!read)
        PlanEvents::instance().report(read);
}

/// The answer of a service that cannot return a failure: the value that was read, or `refusal` after
/// `PlanEvents::report`. The refusal must not allow anything that the value might forbid.
template <typename T> T valueOrReport(const Result<T>& read, const T& refusal)
{
    reportFailure(read.status());
    return read.valueOr(refusal);
}
