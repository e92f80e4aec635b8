#pragma once

#include <QByteArray>
#include <QString>
#include <QTime>

#include <optional>

/// Times of the day in strategy files and in messages. The market is in China.
namespace MarketTime {

/// A time as it is written in a file.
struct Written {
    QTime time;
    std::optional<int> offset; ///< seconds east of UTC, if it is written
    bool isUsual = true;       ///< in the form of the standard
};

/// Reads "09:30:00" with or without fraction and offset, also "9:30".
std::optional<Written> read(const QString& text);
/// The stored form, "HH:mm:ss".
QString toText(const QTime& time);
/// True for times in the stored form.
bool isStored(const QString& text);

/// True if the time zone is known. An empty one is the market's.
bool isZone(const QByteArray& zone);
/// The zone, empty if it is the market's.
QByteArray withoutMarket(const QByteArray& zone);
/// A time of today in another time zone.
QTime convert(const QTime& time, const QByteArray& from, const QByteArray& to);
/// A time as it is written, without offset in the time zone `from`, in the time zone `to`; nothing if it is no time.
std::optional<QString> converted(const QString& text, const QByteArray& from, const QByteArray& to);
/// A time of today in a time zone, at an offset from UTC.
QTime convertOffset(const QTime& time, int offset, const QByteArray& to);
/// The time now in a time zone.
QTime now(const QByteArray& zone);

} // namespace MarketTime
