#include "store/PlanStore.h"

#include "store/PlanId.h"

namespace {

QString timeText(const QDateTime& time)
{
    return time.toString(Qt::ISODateWithMs);
}

QDateTime timeOf(const QVariant& text)
{
    return QDateTime::fromString(text.toString(), Qt::ISODateWithMs);
}

} // namespace

PlanStore::PlanStore(Database& database, const QString& otherParamKey)
    : m_database(database)
    , m_otherParamKey(otherParamKey)
{
}

PlanStore::Created PlanStore::create(const Record& record, const QString& creator, const QDateTime& now)
{
    Created result;
    result.reason = checkRecord(record);
    if (!result.reason.isEmpty())
        return result;
    result.reason = m_database.transaction([&] {
        const QSqlQuery insert = m_database.query(
            QStringLiteral("INSERT INTO plans (version, creator, created_time, changed_time, other_param)"
                           " VALUES (1, ?, ?, ?, ?)"),
            { creator, timeText(now), timeText(now), otherParamOf(record) });
        if (!insert.isActive())
            return Database::reasonOf(insert);
        const qint64 number = insert.lastInsertId().toLongLong();
        result.id = PlanId::fromNumber(number);
        return writeFields(number, record);
    });
    if (!result.reason.isEmpty())
        result.id.clear();
    return result;
}

QString PlanStore::modify(const QString& planId, const Record& record, const QDateTime& now)
{
    const QString unknown = QStringLiteral("计划%1不存在").arg(planId);
    const auto number = PlanId::toNumber(planId);
    if (!number)
        return unknown;
    const QString refused = checkRecord(record);
    if (!refused.isEmpty())
        return refused;
    return m_database.transaction([&] {
        const QSqlQuery update = m_database.query(
            QStringLiteral(
                "UPDATE plans SET version = version + 1, changed_time = ?, other_param = ? WHERE number = ?"),
            { timeText(now), otherParamOf(record), *number });
        if (!update.isActive())
            return Database::reasonOf(update);
        if (update.numRowsAffected() != 1)
            return unknown;
        const QString reason =
            m_database.execute(QStringLiteral("DELETE FROM plan_fields WHERE plan = ?"), { *number });
        return reason.isEmpty() ? writeFields(*number, record) : reason;
    });
}

PlanStore::Record PlanStore::record(const QString& planId)
{
    return plan(planId).record;
}

StoredPlan PlanStore::plan(const QString& planId)
{
    const auto number = PlanId::toNumber(planId);
    if (!number)
        return StoredPlan();
    return read(QStringLiteral("WHERE number = ?"), { *number }).value(0);
}

QVector<StoredPlan> PlanStore::page(int offset, int limit)
{
    if (offset < 0 || limit < 1)
        return {};
    return read(QStringLiteral("ORDER BY number DESC LIMIT ? OFFSET ?"), { limit, offset });
}

int PlanStore::count()
{
    QSqlQuery query = m_database.query(QStringLiteral("SELECT count(*) FROM plans"));
    return query.next() ? query.value(0).toInt() : 0;
}

QStringList PlanStore::idsOfPeriod(const QString& beginKey, const QString& endKey, const QDate& day)
{
    QSqlQuery query = m_database.query(
        QStringLiteral("SELECT number FROM plans"
                       " JOIN plan_fields AS b ON b.plan = number AND b.key = ? AND b.value <= ?"
                       " JOIN plan_fields AS e ON e.plan = number AND e.key = ? AND e.value >= ? ORDER BY number"),
        { beginKey, day.toString(Qt::ISODate), endKey, day.toString(Qt::ISODate) });
    QStringList ids;
    while (query.next())
        ids << PlanId::fromNumber(query.value(0).toLongLong());
    return ids;
}

QString PlanStore::checkRecord(const Record& record) const
{
    if (record.isEmpty())
        return QStringLiteral("计划内容为空");
    for (auto it = record.cbegin(); it != record.cend(); ++it) {
        if (it.value().type() != QVariant::String)
            return QStringLiteral("计划字段“%1”的值不是文本").arg(it.key());
    }
    return QString();
}

QVariant PlanStore::otherParamOf(const Record& record) const
{
    return record.contains(m_otherParamKey) ? record.value(m_otherParamKey).toString() : QVariant();
}

QString PlanStore::writeFields(qint64 number, const Record& record)
{
    QSqlQuery insert =
        m_database.prepare(QStringLiteral("INSERT INTO plan_fields (plan, key, value) VALUES (?, ?, ?)"));
    for (auto it = record.cbegin(); it != record.cend(); ++it) {
        if (it.key() == m_otherParamKey)
            continue;
        const QString reason = Database::executePrepared(insert, { number, it.key(), it.value() });
        if (!reason.isEmpty())
            return reason;
    }
    return QString();
}

QVector<StoredPlan> PlanStore::read(const QString& condition, const QVariantList& values)
{
    QSqlQuery query = m_database.query(
        QStringLiteral("SELECT number, version, creator, created_time, changed_time, other_param FROM plans ")
            + condition,
        values);
    QVector<StoredPlan> plans;
    while (query.next()) {
        StoredPlan plan{ PlanId::fromNumber(query.value(0).toLongLong()), query.value(1).toInt(),
            query.value(2).toString(), timeOf(query.value(3)), timeOf(query.value(4)), {} };
        if (!query.value(5).isNull())
            plan.record.insert(m_otherParamKey, query.value(5).toString());
        readFields(plan, query.value(0).toLongLong());
        plans << plan;
    }
    return plans;
}

void PlanStore::readFields(StoredPlan& plan, qint64 number)
{
    QSqlQuery query = m_database.query(QStringLiteral("SELECT key, value FROM plan_fields WHERE plan = ?"), { number });
    while (query.next())
        plan.record.insert(query.value(0).toString(), query.value(1).toString());
}
