#include "calendar/ClientClock.h"

namespace {

QDate& chosenToday()
{
    static QDate today;
    return today;
}

} // namespace

QDate clientToday()
{
    return chosenToday().isValid() ? chosenToday() : QDate::currentDate();
}

void setClientToday(const QDate& today)
{
    chosenToday() = today;
}
