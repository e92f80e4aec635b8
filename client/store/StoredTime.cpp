#include "StoredTime.h"

QString StoredTime::toText(const QDateTime& time)
{
    return time.toUTC().toString(Qt::ISODateWithMs);
}

QDateTime StoredTime::fromText(const QString& text)
{
    return QDateTime::fromString(text, Qt::ISODateWithMs).toLocalTime();
}
