#include "PlanStore.h"

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

Result<QString> PlanStore::create(const Record& record, const QString& creator, const QDateTime& now)
{
    if (Status refused = checkRecord(record); !refused)
        return refused;
    QString id;
    Status status = m_database.transaction([&] {
        const QSqlQuery insert = m_database.query(
            QStringLiteral("INSERT INTO plans (version, creator, created_time, changed_time, other_param)"
                           " VALUES (1, ?, ?, ?, ?)"),
            { creator, timeText(now), timeText(now), otherParamOf(record) });
        if (!insert.isActive())
            return Database::statusOf(insert);
        const qint64 number = insert.lastInsertId().toLongLong();
        id = PlanId::fromNumber(number);
        return writeFields(number, record);
    });
    if (!status)
        return status;
    return id;
}

Status PlanStore::modify(const QString& planId, const Record& record, const QDateTime& now)
{
    const Status unknown(Error::UnknownPlan, { planId });
    const auto number = PlanId::toNumber(planId);
    if (!number)
        return unknown;
    if (Status refused = checkRecord(record); !refused)
        return refused;
    return m_database.transaction([&] {
        const QSqlQuery update = m_database.query(
            QStringLiteral(
                "UPDATE plans SET version = version + 1, changed_time = ?, other_param = ? WHERE number = ?"),
            { timeText(now), otherParamOf(record), *number });
        if (!update.isActive())
            return Database::statusOf(update);
        if (update.numRowsAffected() != 1)
            return unknown;
        Status removed = m_database.execute(QStringLiteral("DELETE FROM plan_fields WHERE plan = ?"), { *number });
        return removed ? writeFields(*number, record) : removed;
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
    return read(QStringLiteral("number = ?"), { *number }).value(0);
}

QVector<StoredPlan> PlanStore::page(int offset, int limit)
{
    if (offset < 0 || limit < 1)
        return {};
    return read(QStringLiteral("number IN (SELECT number FROM plans ORDER BY number DESC LIMIT ? OFFSET ?)"),
        { limit, offset });
}

int PlanStore::count()
{
    QSqlQuery query = m_database.query(QStringLiteral("SELECT count(*) FROM plans"));
    return query.next() ? query.value(0).toInt() : 0;
}

int PlanStore::newerThan(const QString& planId)
{
    const auto number = PlanId::toNumber(planId);
    if (!number)
        return -1;
    QSqlQuery query = m_database.query(
        QStringLiteral("SELECT (SELECT count(*) FROM plans AS newer WHERE newer.number > plans.number) FROM plans"
                       " WHERE number = ?"),
        { *number });
    return query.next() ? query.value(0).toInt() : -1;
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

Status PlanStore::checkRecord(const Record& record) const
{
    if (record.isEmpty())
        return Error::EmptyPlan;
    for (auto it = record.cbegin(); it != record.cend(); ++it) {
        if (it.value().userType() != QMetaType::QString)
            return { Error::FieldNotText, { it.key() } };
    }
    return {};
}

QVariant PlanStore::otherParamOf(const Record& record) const
{
    return record.contains(m_otherParamKey) ? record.value(m_otherParamKey).toString() : QVariant();
}

Status PlanStore::writeFields(qint64 number, const Record& record)
{
    QSqlQuery insert =
        m_database.prepare(QStringLiteral("INSERT INTO plan_fields (plan, key, value) VALUES (?, ?, ?)"));
    for (auto it = record.cbegin(); it != record.cend(); ++it) {
        if (it.key() == m_otherParamKey)
            continue;
        if (Status status = Database::executePrepared(insert, { number, it.key(), it.value() }); !status)
            return status;
    }
    return {};
}

// One statement for plans and fields; the rows of a plan, one for each field, are consecutive.
QVector<StoredPlan> PlanStore::read(const QString& condition, const QVariantList& values)
{
    QSqlQuery query = m_database.query(
        QStringLiteral("SELECT number, key, value, version, creator, created_time, changed_time, other_param FROM plans"
                       " LEFT JOIN plan_fields ON plan = number WHERE %1 ORDER BY number DESC")
            .arg(condition),
        values);
    QVector<StoredPlan> plans;
    qint64 last = 0;
    while (query.next()) {
        const qint64 number = query.value(0).toLongLong();
        if (plans.isEmpty() || number != last)
            plans << planOf(query);
        last = number;
        if (!query.value(1).isNull())
            plans.last().record.insert(query.value(1).toString(), query.value(2).toString());
    }
    return plans;
}

StoredPlan PlanStore::planOf(const QSqlQuery& row) const
{
    StoredPlan plan{ PlanId::fromNumber(row.value(0).toLongLong()), row.value(3).toInt(), row.value(4).toString(),
        timeOf(row.value(5)), timeOf(row.value(6)), {} };
    if (!row.value(7).isNull())
        plan.record.insert(m_otherParamKey, row.value(7).toString());
    return plan;
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
