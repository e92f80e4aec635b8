#include "PlanStore.h"

#include "AutoPlanField.h"
#include "Kelvo_Fields.h"
#include "RecordCheck.h"

using namespace AutoPlanField::BaseField;

namespace {

QString timeText(const QDateTime& time)
{
    return time.toString(Qt::ISODateWithMs);
}

QDateTime timeOf(const QVariant& text)
{
    return QDateTime::fromString(text.toString(), Qt::ISODateWithMs);
}

QVariant otherParamOf(const PlanStore::Record& record)
{
    return record.contains(planOtherParam) ? record.value(planOtherParam).toString() : QVariant();
}

StoredPlan planOf(const QSqlQuery& row)
{
    StoredPlan plan{ PlanId::fromNumber(row.value(0).toLongLong()), row.value(3).toInt(), row.value(4).toString(),
        timeOf(row.value(5)), timeOf(row.value(6)), {} };
    if (!row.value(7).isNull())
        plan.record.insert(planOtherParam, row.value(7).toString());
    return plan;
}

} // namespace

PlanStore::PlanStore(Database& database)
    : m_database(database)
    , m_condition(QStringLiteral("1"))
{
}

PlanStore::PlanStore(Database& database, const StoredUser& user)
    : m_database(database)
    , m_condition(QStringLiteral("(EXISTS (SELECT 1 FROM plan_fields AS f"
                                 " JOIN user_accounts AS u ON u.trading_account = f.value"
                                 " WHERE f.plan = plans.number AND f.key = ? AND u.user = ?)"
                                 " OR EXISTS (SELECT 1 FROM plan_fields AS f WHERE f.plan = plans.number"
                                 " AND f.key IN (?, ?) AND f.value = ?))"))
    , m_values{ Kelvo_Fields::UserAccount::tradingAccount, user.id, expectedUser, executeUser, user.name }
{
}

Result<QString> PlanStore::create(const Record& record, const QString& creator, const QDateTime& now)
{
    if (Status refused = RecordCheck::refusal(record); !refused)
        return refused;
    QString id;
    Status status = m_database.transaction([&]() -> Status {
        const Result<qint64> number = m_database.insert(
            QStringLiteral("INSERT INTO plans (version, creator, created_time, changed_time, other_param)"
                           " VALUES (1, ?, ?, ?, ?)"),
            { creator, timeText(now), timeText(now), otherParamOf(record) });
        if (!number)
            return number.status();
        id = PlanId::fromNumber(*number);
        return writeFields(*number, record);
    });
    return status ? Result<QString>(id) : status;
}

Status PlanStore::modify(const QString& planId, const Record& record, const QDateTime& now)
{
    const Status unknown(Error::UnknownPlan, { planId });
    const auto number = PlanId::toNumber(planId);
    if (!number)
        return unknown;
    if (Status refused = RecordCheck::refusal(record); !refused)
        return refused;
    return m_database.transaction([&]() -> Status {
        const Result<int> changed = m_database.change(
            QStringLiteral(
                "UPDATE plans SET version = version + 1, changed_time = ?, other_param = ? WHERE number = ? AND ")
                + m_condition,
            QVariantList{ timeText(now), otherParamOf(record), *number } + m_values);
        if (!changed)
            return changed.status();
        if (*changed != 1)
            return unknown;
        Status removed = m_database.execute(QStringLiteral("DELETE FROM plan_fields WHERE plan = ?"), { *number });
        return removed ? writeFields(*number, record) : removed;
    });
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
    const auto found = read(QStringLiteral("number = ? AND ") + m_condition, QVariantList{ *number } + m_values);
    return found ? Result<StoredPlan>(found->value(0)) : found.status();
}

Result<QVector<StoredPlan>> PlanStore::page(int offset, int limit)
{
    if (offset < 0 || limit < 1)
        return QVector<StoredPlan>();
    return read(QStringLiteral("number IN (SELECT number FROM plans WHERE %1 ORDER BY number DESC LIMIT ? OFFSET ?)")
                    .arg(m_condition),
        m_values + QVariantList{ limit, offset });
}

Result<int> PlanStore::count()
{
    const auto found = m_database.value(QStringLiteral("SELECT count(*) FROM plans WHERE ") + m_condition, m_values);
    return found ? Result<int>(found->toInt()) : found.status();
}

Result<int> PlanStore::version(const QString& planId)
{
    const auto number = PlanId::toNumber(planId);
    if (!number)
        return 0;
    const auto found = m_database.value(QStringLiteral("SELECT version FROM plans WHERE number = ? AND ") + m_condition,
        QVariantList{ *number } + m_values);
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
    const auto found =
        m_database.value(QStringLiteral("SELECT count(*) FROM plans WHERE number > ? AND ") + m_condition,
            QVariantList{ *number } + m_values);
    return found ? Result<int>(found->toInt()) : found.status();
}

Result<QStringList> PlanStore::idsOfDay(const QDate& day)
{
    QStringList ids;
    Status status = m_database.read(
        QStringLiteral(
            "SELECT number FROM plans"
            " JOIN plan_fields AS b ON b.plan = number AND b.key = ? AND b.value <= ?"
            " JOIN plan_fields AS e ON e.plan = number AND e.key = ? AND e.value >= ? WHERE %1 ORDER BY number")
            .arg(m_condition),
        QVariantList{ beginDate, day.toString(Qt::ISODate), endDate, day.toString(Qt::ISODate) } + m_values,
        [&ids](const QSqlQuery& row) { ids << PlanId::fromNumber(row.value(0).toLongLong()); });
    return status ? Result<QStringList>(ids) : status;
}

Status PlanStore::writeFields(qint64 number, const Record& record)
{
    QSqlQuery insert;
    Status status =
        m_database.prepare(QStringLiteral("INSERT INTO plan_fields (plan, key, value) VALUES (?, ?, ?)"), insert);
    for (auto it = record.cbegin(); it != record.cend() && status; ++it) {
        if (it.key() != planOtherParam)
            status = m_database.executePrepared(insert, { number, it.key(), it.value() });
    }
    return status;
}

// One statement for plans and fields; the rows of a plan, one for each field, are consecutive.
Result<QVector<StoredPlan>> PlanStore::read(const QString& condition, const QVariantList& values)
{
    QVector<StoredPlan> plans;
    qint64 last = 0;
    Status status = m_database.read(
        QStringLiteral("SELECT number, key, value, version, creator, created_time, changed_time, other_param FROM plans"
                       " LEFT JOIN plan_fields ON plan = number WHERE %1 ORDER BY number DESC")
            .arg(condition),
        values, [&](const QSqlQuery& row) {
            const qint64 number = row.value(0).toLongLong();
            if (plans.isEmpty() || number != last)
                plans << planOf(row);
            last = number;
            if (!row.value(1).isNull())
                plans.last().record.insert(row.value(1).toString(), row.value(2).toString());
        });
    return status ? Result<QVector<StoredPlan>>(plans) : status;
}

QString PlanId::fromNumber(qint64 number)
{
    return QStringLiteral("AP%1").arg(number, 8, 10, QLatin1Char('0'));
}

std::optional<qint64> PlanId::toNumber(const QString& id)
{
    bool isNumber = false;
    const qint64 number = id.mid(2).toLongLong(&isNumber);
    // Converted back and compared, so that "AP12" or "AP+0000012" is not an id.
    if (!isNumber || number < 1 || fromNumber(number) != id)
        return std::nullopt;
    return number;
}
