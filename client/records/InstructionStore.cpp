#include "InstructionStore.h"

#include "HistoryStore.h"
#include "PlanCodes.h"
#include "PlanScope.h"
#include "StoredPlan.h"
#include "StoredTime.h"

#include <limits>

namespace {

/// As floating-point numbers, which large sums do not overflow.
QString usedSum(const QString& unit, const QString& isEnded)
{
    return QStringLiteral("coalesce(sum(CAST(CASE WHEN %2 THEN filled_%1 ELSE issued_%1 END AS DOUBLE PRECISION)), 0)")
        .arg(unit, isEnded);
}

/// The expressions of a plan's use, over its instructions.
const QStringList& sums()
{
    static const QString isEnded = QStringLiteral("ended = 1");
    static const QStringList all{ usedSum(QStringLiteral("quantity"), isEnded), usedSum(QStringLiteral("fen"), isEnded),
        QStringLiteral("min(CASE WHEN ended IS DISTINCT FROM 1 THEN day END)") };
    return all;
}

constexpr double FenPerYuan = 100;

QDate dayOf(const QVariant& value)
{
    return QDate::fromString(value.toString(), Qt::ISODate);
}

PlanUse useOf(const QSqlQuery& row, int column)
{
    return { row.value(column).toDouble(), row.value(column + 1).toDouble() / FenPerYuan,
        dayOf(row.value(column + 2)) };
}

} // namespace

QSet<QDate> PlanDays::handled() const
{
    QSet<QDate> days;
    for (const InstructionRow::Fields& fields : instructions)
        days << dayOf(fields.value(PlanCodes::FieldId::TradeDate));
    for (auto refusal = refusals.cbegin(); refusal != refusals.cend(); ++refusal)
        days << refusal.key();
    return days;
}

InstructionStore::InstructionStore(Database& database)
    : m_database(database)
{
}

Result<QString> InstructionStore::add(
    const QString& planId, const QDate& day, const Fields& fields, const Change& change)
{
    const Status unknown(Error::UnknownPlan, { planId });
    const auto plan = PlanId::toNumber(planId);
    if (!plan)
        return unknown;
    const auto assigned = InstructionRow::assignment(fields);
    if (!assigned)
        return assigned.status();
    QString id;
    Status status = m_database.transaction([&]() -> Status {
        const Result<Place> place = nextPlace(*plan);
        if (!place)
            return place.status();
        if (place->version == 0)
            return unknown;
        id = InstructionRow::id(planId, place->position);
        const QStringList columns = QStringList{ QStringLiteral("plan, position, day") } + assigned->columns;
        const QString placeholders =
            QStringLiteral("?, ?, ?") + QStringLiteral(", ?").repeated(assigned->values.size());
        const QString dayText = day.toString(Qt::ISODate);
        if (Status added = m_database.execute(QStringLiteral("INSERT INTO instructions (%1) VALUES (%2)")
                                                  .arg(columns.join(QStringLiteral(", ")), placeholders),
                QVariantList{ *plan, place->position, dayText } + assigned->values);
            !added)
            return added;
        Fields after = fields;
        after.insert(PlanCodes::FieldId::TradeDate, dayText);
        return HistoryStore(m_database).add({ HistoryEvent::Issued, *plan, place->version, id, {}, after }, change);
    });
    return status ? Result<QString>(id) : status;
}

// Follows the last instruction, also if earlier ones are missing. The version of an unknown plan is 0. Others wait, so
// that no two instructions get the same place.
Result<InstructionStore::Place> InstructionStore::nextPlace(qint64 plan)
{
    constexpr qint64 Last = std::numeric_limits<int>::max();
    Place place;
    if (Status status = m_database.lock(QStringLiteral("SELECT number FROM plans WHERE number = ?"), { plan }); !status)
        return status;
    Status status = m_database.read(
        QStringLiteral("SELECT version, COALESCE((SELECT max(position) FROM instructions WHERE plan = number), 0)"
                       " FROM plans WHERE number = ?"),
        { plan }, [&place](const QSqlQuery& row) {
            const qint64 last = row.value(1).toLongLong();
            place = { row.value(0).toInt(), last < Last ? static_cast<int>(last) + 1 : 0 };
        });
    if (status && place.version != 0 && place.position == 0)
        return Error::NumbersExhausted;
    return status ? Result<Place>(place) : status;
}

Status InstructionStore::update(
    const QString& planId, const QString& instruction, const Fields& fields, const Change& change)
{
    const auto plan = PlanId::toNumber(planId);
    const auto position = InstructionRow::positionOf(planId, instruction);
    if (!plan || !position)
        return { Error::UnknownInstruction, { instruction } };
    const auto assigned = InstructionRow::assignment(fields);
    if (!assigned)
        return assigned.status();
    return m_database.transaction([&]() -> Status {
        const Result<Place> place = nextPlace(*plan);
        if (!place)
            return place.status();
        const auto stored = read(planId, QStringLiteral(" AND position = ?"), { *position });
        if (!stored)
            return stored.status();
        if (stored->isEmpty())
            return { Error::UnknownInstruction, { instruction } };
        // The position keeps its value, so that the statement is valid also without fields.
        const QStringList columns = assigned->columns + QStringList{ QStringLiteral("position") };
        if (Status changed =
                m_database.execute(QStringLiteral("UPDATE instructions SET %1 = ? WHERE plan = ? AND position = ?")
                                       .arg(columns.join(QStringLiteral(" = ?, "))),
                    assigned->values + QVariantList{ *position, *plan, *position });
            !changed)
            return changed;
        Fields before;
        for (auto field = fields.cbegin(); field != fields.cend(); ++field)
            before.insert(field.key(), stored->constBegin()->value(field.key()).toString());
        return HistoryStore(m_database)
            .add({ HistoryEvent::InstructionChanged, *plan, place->version, instruction, before, fields }, change);
    });
}

Status InstructionStore::refuse(const QString& planId, const QDate& day, const QString& reason, const Change& change)
{
    return m_database.execute(
        QStringLiteral("INSERT INTO refused_days (plan, day, reason, \"user\", time) VALUES (?, ?, ?, ?, ?)"
                       " ON CONFLICT (plan, day) DO UPDATE SET reason = excluded.reason, \"user\" = excluded.\"user\","
                       " time = excluded.time"),
        { PlanId::toNumber(planId).value_or(0), day.toString(Qt::ISODate), reason, change.user,
            StoredTime::toText(change.time) });
}

Status InstructionStore::waitForIssue()
{
    const QString& wait = m_database.dialect().issueLock;
    return wait.isEmpty() ? Status() : m_database.value(wait).status();
}

Status InstructionStore::endBefore(const QString& planId, const QDate& day, const Change& change)
{
    const auto open =
        read(planId, QStringLiteral(" AND day < ? AND ended IS DISTINCT FROM 1"), { day.toString(Qt::ISODate) });
    if (!open)
        return open.status();
    for (auto instruction = open->cbegin(); instruction != open->cend(); ++instruction) {
        const Fields ended{ { PlanCodes::FieldId::EndState, PlanCodes::EndState::Ended } };
        if (Status status = update(planId, instruction.key(), ended, change); !status)
            return status;
    }
    return {};
}

Result<QMap<QString, InstructionStore::Fields>> InstructionStore::ofPlan(const QString& planId)
{
    return read(planId, QString(), {});
}

// In one statement, because each is a round trip. The refusals are joined with no instruction.
Result<PlanDays> InstructionStore::daysOf(const QString& planId)
{
    PlanDays days;
    const qint64 plan = PlanId::toNumber(planId).value_or(0);
    const QString statement =
        QStringLiteral("SELECT %1, NULL AS refused, NULL AS reason FROM instructions WHERE plan = ?"
                       " UNION ALL SELECT %1, refused, reason FROM"
                       " (SELECT day AS refused, reason FROM refused_days WHERE plan = ?) AS r"
                       " LEFT JOIN instructions ON 1 = 0")
            .arg(InstructionRow::columns());
    Status status = m_database.read(statement, { plan, plan }, [&](const QSqlQuery& row) {
        const QDate refused = dayOf(row.value(QStringLiteral("refused")));
        if (refused.isValid())
            days.refusals.insert(refused, row.value(QStringLiteral("reason")).toString());
        else
            days.instructions.insert(
                InstructionRow::id(planId, InstructionRow::position(row)), InstructionRow::fields(row));
    });
    return status ? Result<PlanDays>(days) : status;
}

Result<QMap<QString, InstructionStore::Fields>> InstructionStore::ofDay(const QString& planId, const QDate& day)
{
    return read(planId, QStringLiteral(" AND day = ?"), { day.toString(Qt::ISODate) });
}

Result<QHash<QString, PlanUse>> InstructionStore::used(const QStringList& planIds, const QDate& day)
{
    QHash<QString, PlanUse> uses;
    const SqlQuery among = PlanScope::among(planIds);
    const QString isEnded = QStringLiteral("ended = 1 OR day < ?");
    const QString statement =
        QStringLiteral("SELECT %1, %2, min(CASE WHEN ended IS DISTINCT FROM 1 AND day < ?"
                       " THEN day END), plan FROM instructions WHERE plan IN %3 GROUP BY plan")
            .arg(usedSum(QStringLiteral("quantity"), isEnded), usedSum(QStringLiteral("fen"), isEnded), among.text);
    const QString text = day.toString(Qt::ISODate);
    Status status =
        m_database.read(statement, QVariantList{ text, text, text } + among.values, [&uses](const QSqlQuery& row) {
            uses.insert(PlanId::fromNumber(row.value(sums().size()).toLongLong()), useOf(row, 0));
        });
    return status ? Result<QHash<QString, PlanUse>>(uses) : status;
}

Result<QHash<QString, PlanProgress>> InstructionStore::progress(const QStringList& planIds)
{
    QHash<QString, PlanProgress> all;
    const SqlQuery among = PlanScope::among(planIds);
    const QString statement =
        QStringLiteral("SELECT p.number, i.quantity, i.fen, i.since, i.filled_quantity, i.filled_fen, i.day, r.day,"
                       " r.reason FROM plans AS p"
                       " LEFT JOIN (SELECT plan, %1 AS quantity, %2 AS fen, %3 AS since,"
                       " coalesce(sum(filled_quantity), 0) AS filled_quantity,"
                       " coalesce(sum(filled_fen), 0) AS filled_fen, max(day) AS day"
                       " FROM instructions WHERE plan IN %4 GROUP BY plan) AS i ON i.plan = p.number"
                       " LEFT JOIN refused_days AS r ON r.plan = p.number"
                       " AND r.day = (SELECT max(day) FROM refused_days WHERE plan = p.number)"
                       " WHERE p.number IN %4")
            .arg(sums().at(0), sums().at(1), sums().at(2), among.text);
    Status status = m_database.read(statement, among.values + among.values, [&all](const QSqlQuery& row) {
        PlanProgress progress{ useOf(row, 1), row.value(4).toDouble(), row.value(5).toDouble() / FenPerYuan,
            dayOf(row.value(6)), {} };
        const QDate refused = dayOf(row.value(7));
        if (refused.isValid() && !(progress.lastDay >= refused)) {
            progress.lastDay = refused;
            progress.refusal = row.value(8).toString();
        }
        all.insert(PlanId::fromNumber(row.value(0).toLongLong()), progress);
    });
    return status ? Result<QHash<QString, PlanProgress>>(all) : status;
}

void InstructionStore::addTo(ValueReader& reader, const QString& planId, PlanUse& use)
{
    QStringList expressions;
    QVariantList values;
    for (const QString& sum : sums()) {
        expressions << QStringLiteral("(SELECT %1 FROM instructions WHERE plan = ?)").arg(sum);
        values << PlanId::toNumber(planId).value_or(0);
    }
    reader.add(expressions, values, [&use](const QSqlQuery& row, int column) {
        use = useOf(row, column);
        return Status();
    });
}

Result<QMap<QString, InstructionStore::Fields>> InstructionStore::read(
    const QString& planId, const QString& condition, const QVariantList& values)
{
    QMap<QString, Fields> instructions;
    const auto plan = PlanId::toNumber(planId);
    if (!plan)
        return instructions;
    Status status = m_database.read(QStringLiteral("SELECT %1 FROM instructions WHERE plan = ?%2 ORDER BY position")
                                        .arg(InstructionRow::columns(), condition),
        QVariantList{ *plan } + values, [&](const QSqlQuery& row) {
            const QString id = InstructionRow::id(planId, InstructionRow::position(row));
            instructions.insert(id, InstructionRow::fields(row));
        });
    return status ? Result<QMap<QString, Fields>>(instructions) : status;
}
