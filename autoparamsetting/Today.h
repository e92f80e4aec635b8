#pragma once

#include <QDate>

/// The current local date. The editor's one place that reads the clock.
QDate today();
