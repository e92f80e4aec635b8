#include "MarketTime.h"

#include "ClientClock.h"

#include <QLocale>
#include <QRegularExpression>
#include <QTimeZone>

namespace {

const QByteArray Market = QByteArrayLiteral("Asia/Shanghai");
const QString StoredTime = QStringLiteral("HH:mm:ss");
constexpr int SecondsPerMinute = 60;
constexpr int SecondsPerHour = 3600;

QTimeZone zoneOf(const QByteArray& zone)
{
    return QTimeZone(zone.isEmpty() ? Market : zone);
}

int offsetOf(const QString& text)
{
    if (text == QLatin1String("Z"))
        return 0;
    QString digits = text.mid(1);
    digits.remove(QLatin1Char(':'));
    const int seconds = digits.left(2).toInt() * SecondsPerHour + digits.mid(2).toInt() * SecondsPerMinute;
    return text.startsWith(QLatin1Char('-')) ? -seconds : seconds;
}

} // namespace

std::optional<MarketTime::Written> MarketTime::read(const QString& text)
{
    static const QRegularExpression form(QRegularExpression::anchoredPattern(QStringLiteral(
        "\\s*([0-9]{1,2}):([0-9]{2})(?::([0-9]{2})(\\.[0-9]+)?)?\\s*(Z|[+-][0-9]{2}(?::?[0-9]{2})?)?\\s*")));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    Written written;
    const int hour = match.captured(1).toInt();
    const bool isMidnight = hour == 24 && match.captured(2).toInt() + match.captured(3).toInt() == 0;
    written.time = QTime(isMidnight ? 0 : hour, match.captured(2).toInt(), match.captured(3).toInt());
    if (!match.captured(5).isEmpty())
        written.offset = offsetOf(match.captured(5));
    written.isUsual = match.captured(1).size() == 2 && !match.captured(3).isEmpty();
    return written.time.isValid() ? std::optional(written) : std::nullopt;
}

QString MarketTime::toText(const QTime& time)
{
    return QLocale::c().toString(time, StoredTime);
}

bool MarketTime::isStored(const QString& text)
{
    return text.size() == StoredTime.size() && QLocale::c().toTime(text, StoredTime).isValid();
}

bool MarketTime::isZone(const QByteArray& zone)
{
    // Qt's list of time zones lacks older names, which are links to others, and a name is a path for it.
    static const QRegularExpression form(
        QRegularExpression::anchoredPattern(QStringLiteral("[A-Z][A-Za-z0-9_+-]*(?:/[A-Z][A-Za-z0-9_+-]*){0,2}")));
    return zone.isEmpty() || (form.match(QString::fromUtf8(zone)).hasMatch() && QTimeZone(zone).isValid());
}

QByteArray MarketTime::withoutMarket(const QByteArray& zone)
{
    return zone == Market ? QByteArray() : zone;
}

QTime MarketTime::convert(const QTime& time, const QByteArray& from, const QByteArray& to)
{
    if (from == to)
        return time;
    return QDateTime(clientToday(), time, zoneOf(from)).toTimeZone(zoneOf(to)).time();
}

std::optional<QString> MarketTime::converted(const QString& text, const QByteArray& from, const QByteArray& to)
{
    const std::optional<Written> written = read(text);
    if (!written)
        return std::nullopt;
    return toText(
        written->offset ? convertOffset(written->time, *written->offset, to) : convert(written->time, from, to));
}

QTime MarketTime::convertOffset(const QTime& time, int offset, const QByteArray& to)
{
    return QDateTime(clientToday(), time, Qt::OffsetFromUTC, offset).toTimeZone(zoneOf(to)).time();
}

QTime MarketTime::now(const QByteArray& zone)
{
    return clientNow().toTimeZone(zoneOf(zone)).time();
}
