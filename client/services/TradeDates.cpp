#include "services/TradeDates.h"

#include "calendar/ClientClock.h"
#include "session/ClientSession.h"

#include <QHash>

namespace {

// Only a weekday tells: weekends are closed in every year, known or not.
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

QList<QDate> tradeDatesOf(const QString& exchange, QString& error)
{
    static QHash<QPair<QString, int>, QList<QDate>> known;
    error.clear();
    const ClientSession& session = ClientSession::instance();
    if (!session.isOpen()) {
        error = QStringLiteral("尚未登录，无法查询交易日");
        return {};
    }
    const QPair<QString, int> key{ exchange, clientToday().year() };
    const auto found = known.constFind(key);
    if (found != known.cend())
        return *found;
    const TradeCalendar& calendar = session.calendar();
    const QList<QDate> days = calendar.tradeDays(exchange, firstKnownDay(calendar, exchange, key.second), error);
    if (error.isEmpty())
        known.insert(key, days);
    return days;
}
