#include "TestClock.h"

#include "Today.h"

namespace {

QDate& storedToday()
{
    static QDate date(2024, 5, 6);
    return date;
}

} // namespace

void setToday(const QDate& date)
{
    storedToday() = date;
}

QDate today()
{
    return storedToday();
}
