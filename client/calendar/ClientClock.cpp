#include "ClientClock.h"

#include "ClosureFiles.h"
#include "Kelvo_Values.h"
#include "StoredTime.h"
#include "TradeCalendar.h"

#include <QHash>

#include <ctime>
#include <utility>

namespace {

// Longer than any run of closed days.
constexpr int LongestClosure = 40;

// Days before the calendar's end from which the client asks for an extension.
constexpr int WarningDays = 90;

QDateTime& chosenTime()
{
    static QDateTime time;
    return time;
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

QDate marketDay(const QDateTime& moment)
{
    return StoredTime::atMarket(moment).date();
}

// In the notation of POSIX, which needs no time zone database: hours that are added to get UTC.
void useMarketTime()
{
    qputenv("TZ", "CST-8");
    tzset();
}

QDate clientToday()
{
    return clientNow().date();
}

QDateTime clientNow()
{
    const QDateTime now = chosenTime().isValid() ? chosenTime() : QDateTime::currentDateTimeUtc();
    return StoredTime::atMarket(now);
}

void setClientTime(const QDateTime& now)
{
    chosenTime() = now;
}

void setClientToday(const QDate& today)
{
    setClientTime(today.isValid() ? StoredTime::ofMarket(today, QTime(12, 0)) : QDateTime());
}

QDate lastTradeDayBefore(const QDate& day)
{
    const TradeCalendar& calendar = ClosureFiles::calendar();
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
    static QHash<QString, QList<QDate>> known;
    static int version = 0;
    if (std::exchange(version, ClosureFiles::version()) != ClosureFiles::version())
        known.clear();
    const int year = clientToday().year();
    const QString key = exchange + QString::number(year);
    const auto found = known.constFind(key);
    if (found != known.cend())
        return *found;
    const TradeCalendar& calendar = ClosureFiles::calendar();
    Result<QList<QDate>> days = calendar.tradeDays(exchange, firstKnownDay(calendar, exchange, year));
    if (days)
        known.insert(key, *days);
    return days;
}

Status checkCalendar(const QDate& today)
{
    if (const Status status = ClosureFiles::status(); !status)
        return status;
    const QDate last = ClosureFiles::calendar().lastKnownDay();
    const qint64 days = today.daysTo(last);
    if (days > WarningDays)
        return {};
    const QString end = last.toString(Qt::ISODate);
    return days < 0 ? Status(Error::CalendarEnded, { end })
                    : Status(Error::CalendarEnds, { end, QString::number(days) });
}
