#pragma once

#include <QDate>

/// Today as the client's own checks see it: the system's date in local time unless another was set.
QDate clientToday();
/// Sets it for everything that follows; an invalid date goes back to the system's.
void setClientToday(const QDate& today);
