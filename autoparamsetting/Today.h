#pragma once

#include <QDate>

/// Returns the current local date. The editor reads the clock only here.
QDate today();
