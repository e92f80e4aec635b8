#pragma once

#include <QDateTime>
#include <QString>

/// Times as texts of the database: UTC with milliseconds, for example "2024-05-06T01:30:00.125Z".
namespace StoredTime {

QString toText(const QDateTime& time);
/// The time in the machine's zone; invalid if the text is no time.
QDateTime fromText(const QString& text);

/// Seconds of the markets' time ahead of UTC: that of China, which has had no daylight saving time since 1991.
constexpr int MarketOffset = 8 * 3600;

/// The same moment in the markets' time.
inline QDateTime atMarket(const QDateTime& time)
{
    return time.toOffsetFromUtc(MarketOffset);
}

/// The moment of a day and a time at the markets.
inline QDateTime ofMarket(const QDate& day, const QTime& time)
{
    return QDateTime(day, time, Qt::OffsetFromUTC, MarketOffset);
}

} // namespace StoredTime
