#include "IssueReport.h"

#include "OrloConstants.h"

#include <QLocale>
#include <QStringList>

QString issueReport(const QDate& day, const IssueResult& result)
{
    const QString date = QLocale::c().toString(day, OrloConstants::DateTimeFormatString::STD_DATE_FORMAT);
    QStringList lines{ QStringLiteral("%1：新下达指令%2条，此前已下达的计划%3个，未下达的计划%4个。")
                           .arg(date, QString::number(result.issued.size()),
                               QString::number(result.alreadyIssued.size()), QString::number(result.skipped.size())) };
    for (const IssueResult::Skipped& skipped : result.skipped)
        lines << QStringLiteral("%1：%2").arg(skipped.planId, skipped.reason);
    return lines.join(QLatin1Char('\n'));
}
