#include "DateRules.h"

#include "OrloConstants.h"
#include "PlainText.h"

#include <QLocale>
#include <QRegularExpression>

namespace {

/// How many days are searched for one that can be chosen.
constexpr int FarthestStep = 400;

Status malformed(const QString& text)
{
    return { Error::DateMalformed, { text.trimmed().left(20) } };
}

// 29 February is in one of the next eight years.
Result<QDate> nextOf(int month, int day, const QDate& today, const QString& text)
{
    constexpr int FarthestYear = 8;
    for (int year = today.year(); year <= today.year() + FarthestYear; ++year) {
        const QDate date(year, month, day);
        if (date.isValid() && date >= today)
            return date;
    }
    return { Error::NoSuchDate, { text } };
}

Result<QDate> counted(int days, const QDate& from, const DateCheck& check)
{
    QDate date = from;
    for (int i = 0; i < days && date.isValid(); ++i)
        date = nextChoosable(date, 1, check);
    return date.isValid() ? Result<QDate>(date) : Status(Error::TooFewTradeDays, { QString::number(days) });
}

/// The form with which a text matches; without a match if it has another form.
QRegularExpressionMatch matchOf(const QString& text)
{
    static const QRegularExpression separated(
        QStringLiteral("^(?:([0-9]{4})([-/.年]))?([0-9]{1,2})[-/.月]([0-9]{1,2})日?$"));
    static const QRegularExpression digits(QStringLiteral("^([0-9]{4})?()([0-9]{2})([0-9]{2})$"));
    const QRegularExpressionMatch match = separated.match(text);
    return match.hasMatch() ? match : digits.match(text);
}

} // namespace

Status DateRules::check(const QDate& date) const
{
    if (!date.isValid())
        return malformed(QString());
    if (minimum.isValid() && date < minimum)
        return { Error::DateTooEarly, { dateText(date), dateText(minimum) } };
    if (maximum.isValid() && date > maximum)
        return { Error::DateTooLate, { dateText(date), dateText(maximum) } };
    if (exceptDaysOfWeek.contains(date.dayOfWeek()) || exceptDates.contains(date))
        return { Error::DateExcluded, { dateText(date) } };
    return {};
}

Result<QDate> typedDate(const QString& text, const DateBase& base, const DateCheck& check)
{
    static const QRegularExpression count(QStringLiteral("^\\+([1-9][0-9]{0,2})$"));
    const QString typed = PlainText::halfWidth(text.trimmed());
    const QRegularExpressionMatch counts = count.match(typed);
    if (counts.hasMatch())
        return counted(counts.captured(1).toInt(), base.countedFrom, check);
    const QRegularExpressionMatch match = matchOf(typed);
    if (!match.hasMatch())
        return malformed(text);
    const int month = match.captured(3).toInt();
    const int day = match.captured(4).toInt();
    if (match.captured(1).isEmpty())
        return nextOf(month, day, base.today, typed);
    const QDate date(match.captured(1).toInt(), month, day);
    return date.isValid() ? Result<QDate>(date) : Status(Error::NoSuchDate, { typed });
}

QDate nearestChoosable(const QDate& date, const DateCheck& check)
{
    if (check(date))
        return date;
    const QDate later = nextChoosable(date, 1, check);
    return later.isValid() ? later : nextChoosable(date, -1, check);
}

QDate nextChoosable(const QDate& from, int step, const DateCheck& check)
{
    QDate date = from;
    for (int i = 0; i < FarthestStep; ++i) {
        date = date.addDays(step);
        if (check(date))
            return date;
    }
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
