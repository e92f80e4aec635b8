#pragma once

#include "Status.h"

#include <QString>

/// The sentence in Chinese that says why an operation failed; empty on success.
QString errorText(const Status& status);
