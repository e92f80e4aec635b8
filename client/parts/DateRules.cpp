#include "DateRules.h"

#include "OrloConstants.h"
#include <QCoreApplication>
#include <QLocale>
#include <QRegularExpression>

namespace {

QString ruleText(const char* text)
{
    return QCoreApplication::translate("OrloDateEdit", text);
}

} // namespace

QString DateRules::refusal(const QDate& date) const
{
    if (!date.isValid())
        return ruleText("请输入有效日期，格式为yyyy-MM-dd");
    if (minimum.isValid() && date < minimum)
        return ruleText("%1早于最早可选日期%2").arg(dateText(date), dateText(minimum));
    if (maximum.isValid() && date > maximum)
        return ruleText("%1晚于最晚可选日期%2").arg(dateText(date), dateText(maximum));
    if (exceptDaysOfWeek.contains(date.dayOfWeek()) || exceptDates.contains(date))
        return ruleText("%1不是交易日，不能选择").arg(dateText(date));
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
