#include "ImportReport.h"

#include "Console.h"
#include "ErrorText.h"

#include <QJsonArray>

void ImportReport::refuse(const Fault& fault)
{
    if (faultCount++ < mostFaults)
        faults << fault;
}

void ImportReport::count(bool isNew, const QStringList& lines)
{
    const Outcome outcome = isNew ? Outcome::Added : lines.isEmpty() ? Outcome::Unchanged : Outcome::Changed;
    ++(isNew ? added : lines.isEmpty() ? unchanged : changed);
    const QStringList texts = lines.isEmpty() ? QStringList(QString()) : lines;
    for (const QString& text : texts) {
        if (results.size() < mostResults)
            results << RowResult{ line, outcome, text };
    }
}

void ImportReport::keep(const QString& text)
{
    ++kept;
    if (results.size() < mostResults)
        results << RowResult{ line, Outcome::Kept, text };
}

QStringList ImportReport::changes() const
{
    QStringList lines;
    for (const RowResult& result : results) {
        if (result.outcome == Outcome::Added || result.outcome == Outcome::Changed)
            lines << result.text;
    }
    return lines;
}

QString ImportTexts::fault(const ImportReport& report, const ImportReport::Fault& fault)
{
    QString place = report.file;
    if (fault.line > 0)
        place += tr("第%1行").arg(fault.line);
    if (fault.column > 0)
        place += tr("第%1列（%2）").arg(QString::number(fault.column), fault.heading);
    return tr("%1：%2").arg(place, errorText(fault.reason));
}

QString ImportTexts::summary(const ImportReport& report, bool isTrial)
{
    QString text = tr("%1：新增%2，修改%3，不变%4")
                       .arg(report.file, QString::number(report.added), QString::number(report.changed),
                           QString::number(report.unchanged));
    if (report.kept > 0)
        text += tr("，导入后已另行修改而保留%1").arg(report.kept);
    if (!report.removals.isEmpty())
        text += tr("，删除%1").arg(report.removals.size());
    if (report.faultCount > 0 && report.isStored)
        return text + tr("，略去错误%1").arg(report.faultCount);
    if (report.faultCount > 0)
        return text + tr("，错误%1，没有导入").arg(report.faultCount);
    return report.isStored ? text : text + (isTrial ? tr("（试运行，没有保存）") : tr("，没有导入"));
}

QString ImportTexts::report(const ImportReport& report, bool isTrial)
{
    QStringList lines;
    for (const ImportReport::Fault& one : report.faults)
        lines << fault(report, one);
    if (report.faultCount > report.faults.size())
        lines << tr("另有%1处错误").arg(report.faultCount - report.faults.size());
    for (const QString& removal : report.removals)
        lines << tr("删除：%1").arg(removal);
    if (isTrial)
        lines += report.changes();
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
        { QStringLiteral("changes"), QJsonArray::fromStringList(report.changes()) },
        { QStringLiteral("removals"), QJsonArray::fromStringList(report.removals) },
        { QStringLiteral("faults"), faults }, { QStringLiteral("faultCount"), report.faultCount } };
}
