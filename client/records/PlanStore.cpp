#include "PlanStore.h"

#include "HistoryStore.h"
#include "PlanListQuery.h"
#include "PlanRow.h"
#include "RecordCheck.h"
#include "StoredTexts.h"
#include "StoredTime.h"

#include <algorithm>

namespace {

const QString Oldest = QStringLiteral("number"); ///< first
const QString Newest = QStringLiteral("number DESC");

qint64 numberOf(const StoredPlan& plan)
{
    return PlanId::toNumber(plan.id).value_or(0);
}

/// The day in the market's time.
QString marketDay(const QDateTime& time)
{
    return StoredTime::atMarket(time).date().toString(Qt::ISODate);
}

} // namespace

PlanStore::PlanStore(Database& database)
    : m_database(database)
{
}

PlanStore::PlanStore(Database& database, const StoredUser& user)
    : m_database(database)
    , m_scope(user)
{
}

Result<QString> PlanStore::create(const Record& record, const Change& change)
{
    return create(record, change, {});
}

// A server looks at the version in the statement that stores the plan; in a file, a transaction is the only one.
Result<QString> PlanStore::createIf(const QString& factsVersion, const Record& record, const Change& change)
{
    if (m_database.dialect().nestsChanges)
        return create(record, change, { m_database.dialect().factsVersion + QStringLiteral(" = ?"), { factsVersion } });
    QString id;
    const Status status = m_database.transaction([&] {
        if (m_database.contentVersion() != factsVersion)
            return Status();
        const Result<QString> created = create(record, change);
        id = created.valueOr(QString());
        return created.status();
    });
    return status ? Result<QString>(id) : status;
}

/// `condition`: empty, or what must hold; if it does not, the id is empty.
Result<QString> PlanStore::create(const Record& record, const Change& change, const SqlQuery& condition)
{
    if (Status refused = RecordCheck::refusal(record); !refused)
        return refused;
    const QString time = StoredTime::toText(change.time);
    const QString values = condition.text.isEmpty() ? QStringLiteral("VALUES (1, ?, ?, ?, %1)")
                                                    : QStringLiteral("SELECT 1, ?, ?, ?, %1 WHERE ") + condition.text;
    const SqlQuery insertion{ QStringLiteral("INSERT INTO plans (version, creator, created_time, changed_time, %1) %2")
                                  .arg(PlanRow::recordColumns(), values.arg(PlanRow::recordPlaceholders())),
        QVariantList{ change.user, time, time } + PlanRow::recordValues(record) + condition.values };
    const Result<qint64> number =
        HistoryStore(m_database).addWith(insertion, { HistoryEvent::Created, 0, 1, {}, {}, record }, change);
    if (!number)
        return number.status();
    return *number == 0 ? QString() : PlanId::fromNumber(*number);
}

Status PlanStore::modify(const QString& planId, int version, const Record& record, const Change& change)
{
    return m_database.transaction([&]() -> Status {
        const Result<StoredPlan> plan = planOfVersion(planId, version);
        return plan ? replace(*plan, record, change) : plan.status();
    });
}

Status PlanStore::replace(const StoredPlan& plan, const Record& record, const Change& change)
{
    if (Status refused = RecordCheck::refusal(record); !refused)
        return refused;
    // On the days since it had ended, it was not due.
    const QString columns =
        QStringLiteral("resumed_time = CASE WHEN completed_day IS NULL AND end_date >= ? THEN resumed_time ELSE ? END,"
                       " completed_day = NULL, (%1) = (%2)")
            .arg(PlanRow::recordColumns(), PlanRow::recordPlaceholders());
    const QVariantList values{ marketDay(change.time), StoredTime::toText(change.time) };
    return update(plan, { columns, values + PlanRow::recordValues(record) },
        { HistoryEvent::Changed, numberOf(plan), plan.version + 1, {}, plan.record, record }, change);
}

Status PlanStore::setState(
    const QString& planId, int version, PlanState state, const QString& reason, const Change& change)
{
    return m_database.transaction([&]() -> Status {
        const Result<StoredPlan> plan = planOfVersion(planId, version);
        return plan ? replaceState(*plan, state, reason, change) : plan.status();
    });
}

Status PlanStore::replaceState(const StoredPlan& plan, PlanState state, const QString& reason, const Change& change)
{
    if (!StoredTexts::isStorable(reason))
        return { Error::FieldNotStorable, { QStringLiteral("reason") } };
    const QString text = PlanRow::stateText(state);
    HistoryEntry entry{ HistoryEvent::StateChanged, numberOf(plan), plan.version + 1, {}, {}, {} };
    entry.before.insert(QStringLiteral("state"), PlanRow::stateText(plan.state));
    entry.after.insert(QStringLiteral("state"), text);
    if (!reason.isEmpty())
        entry.after.insert(QStringLiteral("reason"), reason);
    if (state != PlanState::Active)
        return update(plan, { QStringLiteral("state = ?"), { text } }, entry, change);
    return update(plan, { QStringLiteral("state = ?, resumed_time = ?"), { text, StoredTime::toText(change.time) } },
        entry, change);
}

Status PlanStore::complete(const StoredPlan& plan, const QDate& day, const Change& change)
{
    const QString text = day.toString(Qt::ISODate);
    const SqlQuery planChange{ QStringLiteral("UPDATE plans SET completed_day = ? WHERE number = ?"),
        { text, numberOf(plan) } };
    return HistoryStore(m_database)
        .addWith(planChange, { HistoryEvent::Completed, numberOf(plan), plan.version, text, {}, {} }, change)
        .status();
}

// The plan as it is before a change.
Result<StoredPlan> PlanStore::planOfVersion(const QString& planId, int version)
{
    const Result<StoredPlan> found = lockedPlan(planId);
    if (!found)
        return found;
    if (found->id.isEmpty())
        return { Error::UnknownPlan, { planId } };
    return found->version == version ? found : Result<StoredPlan>(Error::PlanIsNewer, { planId });
}

Status PlanStore::update(
    const StoredPlan& plan, const SqlQuery& assignment, const HistoryEntry& entry, const Change& change)
{
    const SqlQuery planChange{ QStringLiteral(
                                   "UPDATE plans SET version = version + 1, changed_time = ?, %1 WHERE number = ?")
                                   .arg(assignment.text),
        QVariantList{ StoredTime::toText(change.time) } + assignment.values + QVariantList{ numberOf(plan) } };
    const Result<qint64> number = HistoryStore(m_database).addWith(planChange, entry, change);
    return number && *number == 0 ? Status(Error::UnknownPlan, { plan.id }) : number.status();
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
    const auto found = read(isPlan(*number), Oldest);
    return found ? Result<StoredPlan>(found->value(0)) : found.status();
}

Result<StoredPlan> PlanStore::lockedPlan(const QString& planId)
{
    const auto number = PlanId::toNumber(planId);
    if (!number)
        return StoredPlan();
    const auto found = read(isPlan(*number), Oldest, true);
    return found ? Result<StoredPlan>(found->value(0)) : found.status();
}

SqlQuery PlanStore::isPlan(qint64 number) const
{
    const SqlQuery visible = m_scope.condition();
    return { QStringLiteral("number = ? AND ") + visible.text, QVariantList{ number } + visible.values };
}

Result<QVector<StoredPlan>> PlanStore::plans(const QStringList& planIds)
{
    const SqlQuery among = PlanScope::among(planIds);
    const SqlQuery visible = m_scope.condition();
    return read(
        { QStringLiteral("number IN %1 AND %2").arg(among.text, visible.text), among.values + visible.values }, Oldest);
}

Result<QHash<QString, StoredPlan>> PlanStore::plansById(const QStringList& planIds)
{
    const auto found = plans(planIds);
    if (!found)
        return found.status();
    QHash<QString, StoredPlan> byId;
    for (const StoredPlan& plan : *found)
        byId.insert(plan.id, plan);
    return byId;
}

Result<QVector<StoredPlan>> PlanStore::page(const PlanList& list, const PlanSlice& slice)
{
    if (slice.offset < 0 || slice.limit < 1)
        return QVector<StoredPlan>();
    const PlanListQuery query(m_scope, list, m_database.dialect());
    const Result<PlanSlice> bounded = this->bounded(query, slice);
    if (!bounded)
        return bounded.status();
    const SqlQuery numbers = query.slice(*bounded);
    Result<QVector<StoredPlan>> plans =
        read({ QStringLiteral("number IN (%1)").arg(numbers.text), numbers.values }, query.sorting(slice));
    if (plans && slice.isBackward)
        std::reverse(plans->begin(), plans->end());
    return plans;
}

Result<QStringList> PlanStore::ids(const PlanList& list, const PlanSlice& slice)
{
    const PlanListQuery query(m_scope, list, m_database.dialect());
    const Result<PlanSlice> bounded = this->bounded(query, slice);
    if (!bounded)
        return bounded.status();
    const SqlQuery numbers = query.slice(*bounded);
    QStringList found;
    const Status status = m_database.read(numbers.text, numbers.values,
        [&found](const QSqlQuery& row) { found << PlanId::fromNumber(row.value(0).toLongLong()); });
    return status ? Result<QStringList>(found) : status;
}

/// The slice with an end, if that spares reading many plans of each account.
Result<PlanSlice> PlanStore::bounded(const PlanListQuery& query, const PlanSlice& slice)
{
    PlanSlice bounded = slice;
    const std::optional<SqlQuery> bound = query.bound(slice);
    if (!bound)
        return bounded;
    const Status status = m_database.read(bound->text, bound->values, [&bounded](const QSqlQuery& row) {
        bounded.until = PlanPlace{ row.value(1).toString(), row.value(0).toLongLong() };
        bounded.isUntilIncluded = true;
    });
    return status ? Result<PlanSlice>(bounded) : status;
}

Result<QVector<StoredPlan>> PlanStore::page(int offset, int limit)
{
    PlanSlice slice;
    slice.offset = offset;
    slice.limit = limit;
    return page({}, slice);
}

Result<int> PlanStore::count(const PlanList& list, int most)
{
    return number(PlanListQuery(m_scope, list, m_database.dialect()).count(most));
}

Result<int> PlanStore::countOf(const PlanList& list, const PlanSlice& slice)
{
    return number(PlanListQuery(m_scope, list, m_database.dialect()).countOf(slice));
}

Result<QVector<PlanLandmark>> PlanStore::landmarks(const PlanList& list, int step)
{
    const SqlQuery query = PlanListQuery(m_scope, list, m_database.dialect()).landmarks(step);
    QVector<PlanLandmark> found;
    const Status status = m_database.read(query.text, query.values, [&](const QSqlQuery& row) {
        const QString value = list.order == PlanOrder::Number ? QString() : row.value(1).toString();
        found << PlanLandmark{ { value, row.value(0).toLongLong() }, row.value(2).toInt() };
    });
    return status ? Result<QVector<PlanLandmark>>(found) : status;
}

Result<DayPlans> PlanStore::plansOfDay(const QDate& day)
{
    return plansOfDay(day, SqlQuery{ QStringLiteral("TRUE"), {} });
}

Result<DayPlans> PlanStore::plansOfDay(const QDate& day, const QStringList& planIds)
{
    const SqlQuery among = PlanScope::among(planIds);
    return plansOfDay(day, SqlQuery{ QStringLiteral("number IN ") + among.text, among.values });
}

// The plus sign keeps SQLite from reading every plan in the order of the numbers instead of those that have not ended.
Result<DayPlans> PlanStore::plansOfDay(const QDate& day, const SqlQuery& condition)
{
    DayPlans plans;
    const QString text = day.toString(Qt::ISODate);
    const SqlQuery visible = m_scope.condition();
    const QString due =
        QStringLiteral(" FROM plans WHERE begin_date <= ? AND end_date >= ? AND state = 'active'"
                       " AND (completed_day IS NULL OR completed_day = ?) AND %1 AND %2 ORDER BY +number")
            .arg(visible.text, condition.text);
    const QVariantList values = QVariantList{ text, text, text } + visible.values + condition.values;
    if (Status status = m_database.lock(QStringLiteral("SELECT number") + due, values); !status)
        return status;
    Status status = m_database.read(
        QStringLiteral("SELECT number, EXISTS (SELECT 1 FROM instructions WHERE plan = number AND day = ?)") + due,
        QVariantList{ text } + values, [&plans](const QSqlQuery& row) {
            QStringList& ids = row.value(1).toBool() ? plans.issued : plans.due;
            ids << PlanId::fromNumber(row.value(0).toLongLong());
        });
    return status ? Result<DayPlans>(plans) : status;
}

Result<QVector<StoredPlan>> PlanStore::unended(
    const QString& tradingAccount, const QString& symbol, const QDate& day, int limit)
{
    return newest(
        { QStringLiteral("trading_account = ? AND symbol = ? AND end_date >= ?"
                         " AND state IN ('active', 'paused') AND state <> 'archived' AND completed_day IS NULL"),
            { tradingAccount, symbol, day.toString(Qt::ISODate) } },
        limit);
}

Result<QVector<StoredPlan>> PlanStore::newestOf(const QString& tradingAccount, int limit)
{
    const SqlQuery visible = m_scope.condition();
    // One index has the plans that are archived, another one all others.
    const QString each = QStringLiteral("SELECT number FROM (SELECT number FROM plans WHERE trading_account = ?"
                                        " AND state %2 'archived' AND %1 ORDER BY number DESC LIMIT ?) AS newest")
                             .arg(visible.text);
    const QVariantList values = QVariantList{ tradingAccount } + visible.values + QVariantList{ limit };
    return read({ QStringLiteral("number IN (%1 UNION ALL %2 ORDER BY number DESC LIMIT ?)")
                        .arg(each.arg(QStringLiteral("<>")), each.arg(QLatin1Char('='))),
                    values + values + QVariantList{ limit } },
        Newest);
}

Result<QStringList> PlanStore::runningOf(const QString& tradingAccount, const QDate& day)
{
    const SqlQuery visible = m_scope.condition();
    QStringList ids;
    const Status status = m_database.read(
        QStringLiteral("SELECT number FROM plans WHERE trading_account = ? AND end_date >= ? AND state = 'active'"
                       " AND state <> 'archived' AND completed_day IS NULL AND %1 ORDER BY number")
            .arg(visible.text),
        QVariantList{ tradingAccount, day.toString(Qt::ISODate) } + visible.values,
        [&ids](const QSqlQuery& row) { ids << PlanId::fromNumber(row.value(0).toLongLong()); });
    return status ? Result<QStringList>(ids) : status;
}

Result<QVector<StoredPlan>> PlanStore::newest(const SqlQuery& condition, int limit)
{
    const SqlQuery visible = m_scope.condition();
    return read({ QStringLiteral("number IN (SELECT number FROM plans WHERE %1 AND %2 ORDER BY number DESC LIMIT ?)")
                        .arg(condition.text, visible.text),
                    condition.values + visible.values + QVariantList{ limit } },
        Newest);
}

Result<QVector<StoredPlan>> PlanStore::read(const SqlQuery& condition, const QString& sorting, bool locks)
{
    QVector<StoredPlan> plans;
    Status readable;
    const QString statement =
        QStringLiteral("SELECT %1 FROM plans WHERE %2 ORDER BY %3").arg(PlanRow::columns(), condition.text, sorting);
    const auto take = [&](const QSqlQuery& row) {
        const Result<StoredPlan> plan = PlanRow::plan(row);
        if (plan)
            plans << *plan;
        else
            readable = plan.status();
    };
    const Status status = locks ? m_database.readLocked(statement, condition.values, take)
                                : m_database.read(statement, condition.values, take);
    if (!status)
        return status;
    return readable ? Result<QVector<StoredPlan>>(plans) : readable;
}

Result<int> PlanStore::number(const SqlQuery& query)
{
    return m_database.count(query.text, query.values);
}
