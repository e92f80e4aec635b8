#include "PlanStore.h"

#include "PlanRow.h"
#include "RecordCheck.h"
#include "StoredTime.h"

PlanStore::PlanStore(Database& database)
    : m_database(database)
{
}

PlanStore::PlanStore(Database& database, const StoredUser& user)
    : m_database(database)
    , m_scope(user)
{
}

Result<QString> PlanStore::create(const Record& record, const QString& creator, const QDateTime& now)
{
    if (Status refused = RecordCheck::refusal(record); !refused)
        return refused;
    const QString time = StoredTime::toText(now);
    const Result<qint64> number = m_database.insert(
        QStringLiteral("INSERT INTO plans (version, creator, created_time, changed_time, %1) VALUES (1, ?, ?, ?, %2)")
            .arg(PlanRow::recordColumns(), PlanRow::recordPlaceholders()),
        QVariantList{ creator, time, time } + PlanRow::recordValues(record));
    return number ? Result<QString>(PlanId::fromNumber(*number)) : number.status();
}

Status PlanStore::modify(const QString& planId, const Record& record, const QDateTime& now)
{
    const Status unknown(Error::UnknownPlan, { planId });
    const auto number = PlanId::toNumber(planId);
    if (!number)
        return unknown;
    if (Status refused = RecordCheck::refusal(record); !refused)
        return refused;
    const SqlQuery visible = m_scope.condition();
    const Result<int> changed = m_database.change(
        QStringLiteral("UPDATE plans SET version = version + 1, changed_time = ?, (%1) = (%2) WHERE number = ? AND %3")
            .arg(PlanRow::recordColumns(), PlanRow::recordPlaceholders(), visible.text),
        QVariantList{ StoredTime::toText(now) } + PlanRow::recordValues(record) + QVariantList{ *number }
            + visible.values);
    if (!changed)
        return changed.status();
    return *changed == 1 ? Status() : unknown;
}

Result<PlanStore::Record> PlanStore::record(const QString& planId)
{
    const Result<StoredPlan> found = plan(planId);
    return found ? Result<Record>(found->record) : found.status();
}

Result<StoredPlan> PlanStore::plan(const QString& planId)
{
    const auto number = PlanId::toNumber(planId);
    if (!number)
        return StoredPlan();
    const SqlQuery visible = m_scope.condition();
    const auto found =
        read({ QStringLiteral("number = ? AND ") + visible.text, QVariantList{ *number } + visible.values });
    return found ? Result<StoredPlan>(found->value(0)) : found.status();
}

Result<QVector<StoredPlan>> PlanStore::page(int offset, int limit)
{
    if (offset < 0 || limit < 1)
        return QVector<StoredPlan>();
    const SqlQuery page = m_scope.page(offset, limit);
    return read({ QStringLiteral("number IN (%1)").arg(page.text), page.values });
}

Result<int> PlanStore::count()
{
    return countAbove(0);
}

Result<int> PlanStore::version(const QString& planId)
{
    const auto number = PlanId::toNumber(planId);
    if (!number)
        return 0;
    const SqlQuery visible = m_scope.condition();
    const auto found =
        m_database.value(QStringLiteral("SELECT version FROM plans WHERE number = ? AND ") + visible.text,
            QVariantList{ *number } + visible.values);
    return found ? Result<int>(found->toInt()) : found.status();
}

Result<int> PlanStore::newerThan(const QString& planId)
{
    const auto number = PlanId::toNumber(planId);
    if (!number)
        return -1;
    const Result<int> known = version(planId);
    if (!known || *known == 0)
        return known ? Result<int>(-1) : known;
    return countAbove(*number);
}

// The plus sign keeps SQLite from reading every plan in the order of the numbers instead of those that have not ended.
Result<DayPlans> PlanStore::plansOfDay(const QDate& day)
{
    DayPlans plans;
    const QString text = day.toString(Qt::ISODate);
    const SqlQuery visible = m_scope.condition();
    Status status = m_database.read(
        QStringLiteral("SELECT number, EXISTS (SELECT 1 FROM instructions WHERE plan = number AND day = ?) FROM plans"
                       " WHERE begin_date <= ? AND end_date >= ? AND state = 'active' AND %1 ORDER BY +number")
            .arg(visible.text),
        QVariantList{ text, text, text } + visible.values, [&plans](const QSqlQuery& row) {
            QStringList& ids = row.value(1).toBool() ? plans.issued : plans.due;
            ids << PlanId::fromNumber(row.value(0).toLongLong());
        });
    return status ? Result<DayPlans>(plans) : status;
}

Result<QVector<StoredPlan>> PlanStore::read(const SqlQuery& condition)
{
    QVector<StoredPlan> plans;
    Status readable;
    const Status status = m_database.read(
        QStringLiteral("SELECT %1 FROM plans WHERE %2 ORDER BY number DESC").arg(PlanRow::columns(), condition.text),
        condition.values, [&](const QSqlQuery& row) {
            const Result<StoredPlan> plan = PlanRow::plan(row);
            if (plan)
                plans << *plan;
            else
                readable = plan.status();
        });
    if (!status)
        return status;
    return readable ? Result<QVector<StoredPlan>>(plans) : readable;
}

Result<int> PlanStore::countAbove(qint64 number)
{
    const SqlQuery query = m_scope.countAbove(number);
    const auto found = m_database.value(query.text, query.values);
    return found ? Result<int>(found->toInt()) : found.status();
}
