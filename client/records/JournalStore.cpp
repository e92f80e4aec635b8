#include "JournalStore.h"

#include "InstructionStore.h"
#include "PlanRow.h"
#include "PlanStore.h"
#include "StoredTexts.h"
#include "StoredTime.h"

#include <QSqlRecord>

namespace {

// The id of an instruction ends with its position in six digits.
const QString IssueTime = QStringLiteral(
    "(SELECT min(h.time) FROM history AS h WHERE h.plan = instructions.plan AND h.event = 'issued'"
    " AND h.subject LIKE '%-' || substr('000000' || CAST(position AS text), 1 + length(CAST(position AS text))))");

// A day at the markets begins eight hours earlier in UTC.
QString startOf(const QDate& day)
{
    return StoredTime::toText(StoredTime::ofMarket(day, QTime(0, 0)));
}

std::optional<PlanState> stateOf(const QVariantMap& texts)
{
    return PlanRow::state(texts.value(QStringLiteral("state")).toString());
}

/// Refuses what the store does not write.
Status readChange(const QSqlQuery& row, JournalEntry& entry)
{
    const auto before = StoredTexts::fromJson(row.value(6).toString());
    const auto after = StoredTexts::fromJson(row.value(5).toString());
    const auto oldState = stateOf(before.value_or(QVariantMap()));
    const auto newState = stateOf(after.value_or(QVariantMap()));
    if (!oldState || !newState || !entry.time.isValid())
        return { Error::DamagedHistory, { row.value(2).toString() } };
    entry.before = *oldState;
    entry.after = *newState;
    entry.reason = after->value(QStringLiteral("reason")).toString();
    return {};
}

Status readEntry(const QSqlQuery& row, JournalEntry& entry)
{
    entry.kind = static_cast<JournalEntry::Kind>(row.value(1).toInt());
    entry.plan.id = PlanId::fromNumber(row.value(0).toLongLong());
    if (entry.kind == JournalEntry::Kind::Instruction) {
        entry.instruction = InstructionRow::id(entry.plan.id, row.value(2).toInt());
        return {};
    }
    entry.user = row.value(3).toString();
    entry.time = StoredTime::fromText(row.value(4).toString());
    entry.reason = row.value(5).toString();
    return entry.kind == JournalEntry::Kind::StateChange ? readChange(row, entry) : Status();
}

} // namespace

JournalStore::JournalStore(Database& database, const StoredUser& user)
    : m_database(database)
    , m_user(user)
{
}

// Each kind is found by an index of days or times; the plans decide what is seen.
SqlQuery JournalStore::entries(const JournalPage& page) const
{
    const SqlQuery visible = PlanScope(m_user).condition();
    const QString day = page.day.toString(Qt::ISODate);
    return { QStringLiteral(
                 "FROM (SELECT plan, 0 AS kind, position AS item, NULL AS by_user, %1 AS noted, NULL AS text,"
                 " NULL AS old_text FROM instructions WHERE day = ?"
                 " UNION ALL SELECT plan, 1, 0, \"user\", time, reason, NULL FROM refused_days WHERE day = ?"
                 " UNION ALL SELECT plan, 2, number, \"user\", time, CAST(after AS text), CAST(before AS text)"
                 " FROM history WHERE event IN ('changed', 'state changed') AND event = 'state changed'"
                 " AND time >= ? AND time < ?) AS j JOIN plans ON plans.number = j.plan"
                 " WHERE (? = '' OR trading_account = ?) AND %2")
                 .arg(IssueTime, visible.text),
        QVariantList{
            day, day, startOf(page.day), startOf(page.day.addDays(1)), page.tradingAccount, page.tradingAccount }
            + visible.values };
}

Result<int> JournalStore::count(const JournalPage& page)
{
    const SqlQuery all = entries(page);
    return m_database.count(QStringLiteral("SELECT count(*) ") + all.text, all.values);
}

Result<QVector<JournalEntry>> JournalStore::page(const JournalPage& page)
{
    const SqlQuery all = entries(page);
    QVector<JournalEntry> entries;
    Status readable;
    Status status = m_database.read(
        QStringLiteral("SELECT j.plan, j.kind, j.item, j.by_user, j.noted, j.text, j.old_text %1"
                       " ORDER BY j.noted IS NOT NULL, j.noted, j.plan, j.kind, j.item LIMIT ? OFFSET ?")
            .arg(all.text),
        all.values + QVariantList{ page.limit, page.offset }, [&entries, &readable](const QSqlQuery& row) {
            JournalEntry entry;
            const Status read = readEntry(row, entry);
            readable = readable ? read : readable;
            entries << entry;
        });
    status = status ? readable : status;
    if (status)
        status = readPlans(entries);
    if (status)
        status = readInstructions(entries);
    return status ? Result<QVector<JournalEntry>>(entries) : status;
}

Status JournalStore::readPlans(QVector<JournalEntry>& entries)
{
    QStringList ids;
    for (const JournalEntry& entry : qAsConst(entries)) {
        if (ids.isEmpty() || ids.constLast() != entry.plan.id)
            ids << entry.plan.id;
    }
    const auto plans = PlanStore(m_database, m_user).plansById(ids);
    if (!plans)
        return plans.status();
    for (JournalEntry& entry : entries)
        entry.plan = plans->value(entry.plan.id, entry.plan);
    return {};
}

Status JournalStore::readInstructions(QVector<JournalEntry>& entries)
{
    QHash<QString, JournalEntry*> byId;
    QStringList plans;
    for (JournalEntry& entry : entries) {
        if (entry.kind != JournalEntry::Kind::Instruction)
            continue;
        byId.insert(entry.instruction, &entry);
        plans << entry.plan.id;
    }
    plans.removeDuplicates();
    const SqlQuery among = PlanScope::among(plans);
    Status status = m_database.read(
        QStringLiteral("SELECT %1, plan FROM instructions WHERE plan IN %2").arg(InstructionRow::columns(), among.text),
        among.values, [&byId](const QSqlQuery& row) {
            const QString plan = PlanId::fromNumber(row.value(row.record().count() - 1).toLongLong());
            if (JournalEntry* const entry = byId.value(InstructionRow::id(plan, InstructionRow::position(row))))
                entry->fields = InstructionRow::fields(row);
        });
    if (!status)
        return status;
    return m_database.read(
        QStringLiteral("SELECT subject, \"user\", time FROM history WHERE event = 'issued' AND plan IN %1")
            .arg(among.text),
        among.values, [&byId](const QSqlQuery& row) {
            if (JournalEntry* const entry = byId.value(row.value(0).toString())) {
                entry->user = row.value(1).toString();
                entry->time = StoredTime::fromText(row.value(2).toString());
            }
        });
}
