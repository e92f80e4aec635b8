#include "DateRules.h"

#include "OrloConstants.h"

#include <QLocale>
#include <QRegularExpression>

Status DateRules::check(const QDate& date) const
{
    if (!date.isValid())
        return Error::DateMalformed;
    if (minimum.isValid() && date < minimum)
        return { Error::DateTooEarly, { dateText(date), dateText(minimum) } };
    if (maximum.isValid() && date > maximum)
        return { Error::DateTooLate, { dateText(date), dateText(maximum) } };
    if (exceptDaysOfWeek.contains(date.dayOfWeek()) || exceptDates.contains(date))
        return { Error::DateExcluded, { dateText(date) } };
    return {};
}

QDate dateFromText(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^[0-9]{4}-[0-9]{2}-[0-9]{2}$"));
    if (!form.match(text).hasMatch())
        return {};
    return QLocale::c().toDate(text, OrloConstants::DateTimeFormatString::STD_DATE_FORMAT);
}

QString dateText(const QDate& date)
{
    return QLocale::c().toString(date, OrloConstants::DateTimeFormatString::STD_DATE_FORMAT);
}
