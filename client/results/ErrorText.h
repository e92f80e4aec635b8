#pragma once

#include "Status.h"

#include <QString>

/// The error message of a status, in Chinese unless a translation is loaded; empty on success.
QString errorText(const Status& status);
