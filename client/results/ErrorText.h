#pragma once

#include "Status.h"

#include <QString>

/// The sentence that says why an operation failed, in Chinese unless a translation is loaded; empty on success.
QString errorText(const Status& status);
