#include "JournalTexts.h"

#include "Console.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Orlo_Fields.h"
#include "PlanCodes.h"
#include "PlanFormatter.h"
#include "PlanLife.h"
#include "PlanRow.h"
#include "StoredTime.h"

#include <QLocale>

using namespace PlanCodes;
using Kind = JournalEntry::Kind;

namespace {

QString textIn(const JournalEntry& entry, const QString& key)
{
    return entry.plan.record.value(key).toString();
}

QString kindName(Kind kind)
{
    static const QStringList names{ QStringLiteral("instruction"), QStringLiteral("refusal"), QStringLiteral("state") };
    return names.at(static_cast<int>(kind));
}

QString timeText(const JournalEntry& entry)
{
    const QDateTime time = StoredTime::atMarket(entry.time);
    return entry.time.isValid() ? QLocale::c().toString(time, QStringLiteral("HH:mm:ss")) : QString();
}

QString stateText(const JournalEntry& entry)
{
    const QString change = QStringLiteral("%1→%2").arg(PlanLife::word(entry.before), PlanLife::word(entry.after));
    return entry.reason.isEmpty() ? change : JournalTexts::tr("%1（%2）").arg(change, entry.reason);
}

} // namespace

QStringList JournalTexts::titles()
{
    return { tr("时间"), tr("计划编号"), tr("账户"), tr("证券"), tr("方向"), tr("事项"), tr("内容"), tr("用户") };
}

QStringList JournalTexts::cells(const JournalEntry& entry)
{
    const PlanFormatter plan(entry.plan);
    const QStringList kinds{ tr("下达"), tr("未下达"), tr("状态变更") };
    QString text = entry.reason;
    if (entry.kind == Kind::Instruction)
        text = QStringLiteral("%1 %2").arg(entry.instruction, instruction(plan, entry.fields));
    else if (entry.kind == Kind::StateChange)
        text = stateText(entry);
    return { timeText(entry), entry.plan.id, textIn(entry, Kelvo_Fields::UserAccount::tradingAccount), plan.security(),
        plan.side(), kinds.at(static_cast<int>(entry.kind)), text, entry.user };
}

QString JournalTexts::line(const JournalEntry& entry)
{
    return oneLine(cells(entry).join(QLatin1Char(' ')));
}

QJsonObject JournalTexts::json(const JournalEntry& entry)
{
    QJsonObject object{
        { QStringLiteral("kind"), kindName(entry.kind) },
        { QStringLiteral("plan"), entry.plan.id },
        { QStringLiteral("account"), textIn(entry, Kelvo_Fields::UserAccount::tradingAccount) },
        { QStringLiteral("symbol"), textIn(entry, Kelvo_Fields::Security::symbol) },
        { QStringLiteral("user"), entry.user },
        { QStringLiteral("time"), entry.time.isValid() ? QJsonValue(StoredTime::toText(entry.time)) : QJsonValue() },
    };
    if (entry.kind == Kind::Instruction) {
        object.insert(QStringLiteral("instruction"), entry.instruction);
        object.insert(QStringLiteral("fields"), QJsonObject::fromVariantMap(entry.fields));
        return object;
    }
    object.insert(QStringLiteral("reason"), entry.reason);
    if (entry.kind == Kind::StateChange) {
        object.insert(QStringLiteral("before"), PlanRow::stateText(entry.before));
        object.insert(QStringLiteral("after"), PlanRow::stateText(entry.after));
    }
    return object;
}

QString JournalTexts::instruction(const PlanFormatter& plan, const InstructionRow::Fields& fields)
{
    const auto field = [&fields](const QString& key) { return fields.value(key).toString(); };
    const bool byAmount = field(FieldId::TargetType) == InstructionTargetType::AmountOrder;
    const QString issued = byAmount ? field(FieldId::IssuedAmount) : field(FieldId::IssuedQty);
    const QString filled = byAmount ? field(Orlo_Fields::Security::cumAmount) : field(FieldId::FilledQty);
    const QString state = field(FieldId::EndState) == EndState::Ended ? tr("已结束") : tr("进行中");
    return tr("下达 %1，成交 %2，%3").arg(plan.issued(issued, byAmount), plan.issued(filled, byAmount), state);
}
