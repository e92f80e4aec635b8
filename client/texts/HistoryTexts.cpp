#include "HistoryTexts.h"

#include "Console.h"
#include "DecimalText.h"
#include "InstructionTargetType.h"
#include "Orlo_Fields.h"
#include "PlanChanges.h"
#include "PlanCodes.h"
#include "PlanFormatter.h"
#include "PlanLife.h"
#include "PlanRow.h"
#include "PlanStore.h"
#include "StoredTime.h"

#include <QCoreApplication>
#include <QLocale>

using namespace PlanCodes;

namespace {

QString shown(const QString& text)
{
    return text.isEmpty() ? QCoreApplication::translate("HistoryTexts", "（空）") : text;
}

/// The fields that differ, in the words of the form.
QString planChanges(const HistoryEntry& entry)
{
    StoredPlan plan;
    plan.id = PlanId::fromNumber(entry.plan);
    plan.version = 1;
    plan.record = entry.before;
    QMap<QString, QString> before;
    const auto old = PlanFormatter(plan).fields();
    for (const auto& field : old)
        before.insert(field.first, field.second);
    plan.record = entry.after;
    QStringList changes;
    const auto fields = PlanFormatter(plan).fields();
    for (const auto& field : fields) {
        const QString was = before.take(field.first);
        if (was != field.second)
            changes << QStringLiteral("%1 %2→%3").arg(field.first, shown(was), field.second);
    }
    for (auto gone = before.cbegin(); gone != before.cend(); ++gone)
        changes << QStringLiteral("%1 %2→%3").arg(gone.key(), gone.value(), shown(QString()));
    // What the form does not show, for example the user who sent it.
    if (changes.isEmpty())
        changes = PlanChanges::captions(entry.before, entry.after);
    return changes.isEmpty() ? QCoreApplication::translate("HistoryTexts", "内容未变")
                             : changes.join(QCoreApplication::translate("HistoryTexts", "，"));
}

QString instructionChanges(const HistoryEntry& entry)
{
    const auto after = [&entry](const QString& key) { return entry.after.value(key).toString(); };
    const bool byAmount = after(FieldId::TargetType) == InstructionTargetType::AmountOrder;
    const QString issued = after(byAmount ? FieldId::IssuedAmount : FieldId::IssuedQty);
    const QString filled = after(byAmount ? Orlo_Fields::Security::cumAmount : FieldId::FilledQty);
    const QString unit = byAmount ? QCoreApplication::translate("HistoryTexts", "元") : QString();
    QStringList parts{ entry.subject };
    if (!issued.isEmpty())
        parts << QCoreApplication::translate("HistoryTexts", "下达%1%2").arg(groupedText(issued), unit);
    if (!filled.isEmpty())
        parts << QCoreApplication::translate("HistoryTexts", "成交%1%2").arg(groupedText(filled), unit);
    if (after(FieldId::EndState) == EndState::Ended)
        parts << QCoreApplication::translate("HistoryTexts", "已结束");
    return parts.join(QLatin1Char(' '));
}

QString stateChange(const HistoryEntry& entry)
{
    const auto word = [](const HistoryEntry::Fields& fields) {
        const QString text = fields.value(QStringLiteral("state")).toString();
        const auto state = PlanRow::state(text);
        return state ? PlanLife::word(*state) : text;
    };
    const QString reason = entry.after.value(QStringLiteral("reason")).toString();
    const QString change = QStringLiteral("%1→%2").arg(word(entry.before), word(entry.after));
    return reason.isEmpty() ? change : QCoreApplication::translate("HistoryTexts", "%1（%2）").arg(change, reason);
}

} // namespace

QString HistoryTexts::timeText(const QDateTime& time)
{
    return QLocale::c().toString(time, QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

QString HistoryTexts::event(const HistoryEntry& entry)
{
    switch (entry.event) {
    case HistoryEvent::Created:
        return QCoreApplication::translate("HistoryTexts", "新建");
    case HistoryEvent::Changed:
        return QCoreApplication::translate("HistoryTexts", "修改为第%1版：%2")
            .arg(QString::number(entry.version), planChanges(entry));
    case HistoryEvent::StateChanged:
        return QCoreApplication::translate("HistoryTexts", "状态变更为第%1版：%2")
            .arg(QString::number(entry.version), stateChange(entry));
    case HistoryEvent::Issued:
        return QCoreApplication::translate("HistoryTexts", "下达指令：") + instructionChanges(entry);
    case HistoryEvent::InstructionChanged:
        return QCoreApplication::translate("HistoryTexts", "指令变更：") + instructionChanges(entry);
    case HistoryEvent::Signed:
        return QCoreApplication::translate("HistoryTexts", "签署协议：") + entry.subject;
    case HistoryEvent::Completed:
        return QCoreApplication::translate("HistoryTexts", "全部完成：%1").arg(entry.subject);
    }
    return QString();
}

QString HistoryTexts::line(const HistoryEntry& entry)
{
    return oneLine(QCoreApplication::translate("HistoryTexts", "%1 %2（%3，%4）")
                       .arg(timeText(entry.time), event(entry), entry.user, entry.client));
}

QString HistoryTexts::outcome(UnknownRequest request, bool isStored, const QString& planId)
{
    switch (request) {
    case UnknownRequest::Plan:
        return isStored ? QCoreApplication::translate("HistoryTexts", "连接中断前提交的计划%1已保存。").arg(planId)
                        : QCoreApplication::translate("HistoryTexts", "连接中断前提交的计划未保存，请重新提交。");
    case UnknownRequest::State:
        return isStored ? QCoreApplication::translate("HistoryTexts", "连接中断前变更的计划状态已保存。")
                        : QCoreApplication::translate("HistoryTexts", "连接中断前变更的计划状态未保存，请重新变更。");
    case UnknownRequest::Issue:
        return isStored ? QCoreApplication::translate("HistoryTexts", "连接中断前下达的当日指令已保存。")
                        : QCoreApplication::translate("HistoryTexts", "连接中断前下达的当日指令未保存，请重新下达。");
    case UnknownRequest::Signature:
        return isStored ? QCoreApplication::translate("HistoryTexts", "连接中断前签署的协议已保存。")
                        : QCoreApplication::translate("HistoryTexts", "连接中断前签署的协议未保存，请重新签署。");
    }
    return QString();
}

QJsonObject HistoryTexts::json(const HistoryEntry& entry)
{
    return {
        { QStringLiteral("event"), HistoryStore::eventName(entry.event) },
        { QStringLiteral("plan"), PlanId::fromNumber(entry.plan) },
        { QStringLiteral("version"), entry.version },
        { QStringLiteral("subject"), entry.subject },
        { QStringLiteral("user"), entry.user },
        { QStringLiteral("client"), entry.client },
        { QStringLiteral("time"), StoredTime::toText(entry.time) },
        { QStringLiteral("before"), QJsonObject::fromVariantMap(entry.before) },
        { QStringLiteral("after"), QJsonObject::fromVariantMap(entry.after) },
    };
}
