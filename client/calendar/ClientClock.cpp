#include "ClientClock.h"

#include "Kelvo_Values.h"
#include "TradeCalendar.h"

#include <QHash>

namespace {

// Longer than any run of closed days.
constexpr int LongestClosure = 40;

QDate& chosenToday()
{
    static QDate today;
    return today;
}

// Checks a weekday, because weekends are closed in every year, known or not.
bool knowsYear(const TradeCalendar& calendar, const QString& exchange, int year)
{
    QDate weekday(year, 1, 1);
    while (weekday.dayOfWeek() >= Qt::Saturday)
        weekday = weekday.addDays(1);
    return calendar.day(exchange, weekday) != TradeCalendar::Day::Unknown;
}

QDate firstKnownDay(const TradeCalendar& calendar, const QString& exchange, int year)
{
    while (knowsYear(calendar, exchange, year - 1))
        --year;
    return QDate(year, 1, 1);
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

QDate lastTradeDayBefore(const QDate& day)
{
    const TradeCalendar& calendar = TradeCalendar::builtIn();
    const QString exchange = Kelvo_Values::Exchange::sh;
    QDate candidate = qMin(day.addDays(-1), calendar.lastKnownDay(exchange));
    for (int i = 0; i < LongestClosure; ++i, candidate = candidate.addDays(-1)) {
        if (calendar.day(exchange, candidate) == TradeCalendar::Day::Trades)
            return candidate;
    }
    return QDate();
}

Result<QList<QDate>> tradeDatesOf(const QString& exchange)
{
    static QHash<QPair<QString, int>, QList<QDate>> known;
    const QPair<QString, int> key{ exchange, clientToday().year() };
    const auto found = known.constFind(key);
    if (found != known.cend())
        return *found;
    const TradeCalendar& calendar = TradeCalendar::builtIn();
    Result<QList<QDate>> days = calendar.tradeDays(exchange, firstKnownDay(calendar, exchange, key.second));
    if (days)
        known.insert(key, *days);
    return days;
}
