#include "Today.h"

QDate today()
{
    return QDate::currentDate();
}
