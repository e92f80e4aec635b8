#include "ImportReport.h"

#include "Console.h"
#include "ErrorText.h"

#include <QJsonArray>

void ImportReport::refuse(const Fault& fault)
{
    if (faultCount++ < MostFaults)
        faults << fault;
}

void ImportReport::note(const QString& change)
{
    if (changes.size() < MostLines)
        changes << change;
}

void ImportReport::count(bool isNew, const QStringList& lines)
{
    for (const QString& line : lines)
        note(line);
    ++(isNew ? added : lines.isEmpty() ? unchanged : changed);
}

QString ImportTexts::fault(const ImportReport& report, const ImportReport::Fault& fault)
{
    QString place = report.file;
    if (fault.line > 0)
        place += QStringLiteral("第%1行").arg(fault.line);
    if (fault.column > 0)
        place += QStringLiteral("第%1列（%2）").arg(QString::number(fault.column), fault.heading);
    return QStringLiteral("%1：%2").arg(place, errorText(fault.reason));
}

QString ImportTexts::summary(const ImportReport& report, bool isTrial)
{
    QString text = QStringLiteral("%1：新增%2，修改%3，不变%4")
                       .arg(report.file, QString::number(report.added), QString::number(report.changed),
                           QString::number(report.unchanged));
    if (report.kept > 0)
        text += QStringLiteral("，导入后已另行修改而保留%1").arg(report.kept);
    if (!report.removals.isEmpty())
        text += QStringLiteral("，删除%1").arg(report.removals.size());
    if (report.faultCount > 0)
        return text + QStringLiteral("，错误%1，没有导入").arg(report.faultCount);
    return report.isStored ? text
                           : text + (isTrial ? QStringLiteral("（试运行，没有保存）") : QStringLiteral("，没有导入"));
}

QString ImportTexts::report(const ImportReport& report, bool isTrial)
{
    QStringList lines;
    for (const ImportReport::Fault& one : report.faults)
        lines << fault(report, one);
    if (report.faultCount > report.faults.size())
        lines << QStringLiteral("另有%1处错误").arg(report.faultCount - report.faults.size());
    for (const QString& removal : report.removals)
        lines << QStringLiteral("删除：%1").arg(removal);
    if (isTrial)
        lines += report.changes;
    lines << summary(report, isTrial);
    for (QString& line : lines)
        line = oneLine(line);
    return lines.join(QLatin1Char('\n'));
}

QJsonObject ImportTexts::json(const ImportReport& report)
{
    QJsonArray faults;
    for (const ImportReport::Fault& fault : report.faults)
        faults << QJsonObject{ { QStringLiteral("line"), fault.line }, { QStringLiteral("column"), fault.column },
            { QStringLiteral("heading"), fault.heading }, { QStringLiteral("reason"), errorText(fault.reason) } };
    return { { QStringLiteral("file"), report.file }, { QStringLiteral("stored"), report.isStored },
        { QStringLiteral("added"), report.added }, { QStringLiteral("changed"), report.changed },
        { QStringLiteral("unchanged"), report.unchanged }, { QStringLiteral("kept"), report.kept },
        { QStringLiteral("removed"), report.removals.size() },
        { QStringLiteral("changes"), QJsonArray::fromStringList(report.changes) },
        { QStringLiteral("removals"), QJsonArray::fromStringList(report.removals) },
        { QStringLiteral("faults"), faults }, { QStringLiteral("faultCount"), report.faultCount } };
}
