#include "StoredTime.h"

namespace {

/// Writes a number that ends before a position of a text of zeros.
void write(QString& text, int end, int number)
{
    for (int i = end - 1; number > 0; --i, number /= 10)
        text[i] = QChar('0' + number % 10);
}

} // namespace

// Every change of a plan has its time written twice. Qt's writer goes through format strings of `printf`.
QString StoredTime::toText(const QDateTime& time)
{
    const QDateTime utc = time.toUTC();
    const QDate date = utc.date();
    const QTime clock = utc.time();
    if (!utc.isValid() || date.year() < 0 || date.year() > 9999)
        return {};
    QString text = QStringLiteral("0000-00-00T00:00:00.000Z");
    write(text, 4, date.year());
    write(text, 7, date.month());
    write(text, 10, date.day());
    write(text, 13, clock.hour());
    write(text, 16, clock.minute());
    write(text, 19, clock.second());
    write(text, 23, clock.msec());
    return text;
}

QDateTime StoredTime::fromText(const QString& text)
{
    return QDateTime::fromString(text, Qt::ISODateWithMs).toLocalTime();
}
