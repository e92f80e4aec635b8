#include "AlertCalendar.h"

#include "Kelvo_Values.h"
#include "MissedDays.h"
#include "Orlo_Values.h"

namespace {

constexpr int PastDays = 5;
/// Longer than any closure.
constexpr int LongestSearch = 30;

QStringList exchanges()
{
    return { Kelvo_Values::Exchange::sh, Kelvo_Values::Exchange::sz, Orlo_Values::Exchange::bj,
        Orlo_Values::Exchange::HkStockCirculation };
}

/// Trade days from a day on in a direction, at most a number of them.
QVector<QDate> tradeDays(const TradeCalendar& calendar, const QString& exchange, const QDate& from, int step, int most)
{
    QVector<QDate> days;
    QDate day = from.addDays(step);
    for (int i = 0; i < LongestSearch && days.size() < most; ++i, day = day.addDays(step)) {
        if (calendar.day(exchange, day) == TradeCalendar::Day::Trades)
            days << day;
    }
    return days;
}

QVector<AlertDays::TradeDay> byDay(const QMap<QDate, QStringList>& exchangesOfDays)
{
    QVector<AlertDays::TradeDay> days;
    for (auto day = exchangesOfDays.cbegin(); day != exchangesOfDays.cend(); ++day)
        days.prepend({ day.key(), day.value() });
    return days;
}

} // namespace

AlertDays alertDays(const TradeCalendar& calendar, const QDate& today)
{
    QMap<QDate, QStringList> past;
    QMap<QDate, QStringList> next;
    const QStringList all = exchanges();
    for (const QString& exchange : all) {
        const auto before = tradeDays(calendar, exchange, today, -1, PastDays);
        for (const QDate& day : before)
            past[day] << exchange;
        const auto after = tradeDays(calendar, exchange, today, 1, 1);
        for (const QDate& day : after)
            next[day] << exchange;
    }
    return { byDay(past), byDay(next), today, MissedDays::latestStart() };
}
