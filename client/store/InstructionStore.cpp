#include "InstructionStore.h"

#include "StoredPlan.h"

InstructionStore::InstructionStore(Database& database)
    : m_database(database)
{
}

Result<QString> InstructionStore::add(const QString& planId, const QDate& day, const Fields& fields)
{
    const auto plan = PlanId::toNumber(planId);
    if (!plan)
        return { Error::UnknownPlan, { planId } };
    const auto assigned = InstructionRow::assignment(fields);
    if (!assigned)
        return assigned.status();
    QString id;
    Status status = m_database.transaction([&]() -> Status {
        const Result<int> position = nextPosition(*plan, planId);
        if (!position)
            return position.status();
        id = InstructionRow::id(planId, *position);
        const QStringList columns = QStringList{ QStringLiteral("plan, position, day") } + assigned->columns;
        const QString placeholders =
            QStringLiteral("?, ?, ?") + QStringLiteral(", ?").repeated(assigned->values.size());
        return m_database.execute(QStringLiteral("INSERT INTO instructions (%1) VALUES (%2)")
                                      .arg(columns.join(QStringLiteral(", ")), placeholders),
            QVariantList{ *plan, *position, day.toString(Qt::ISODate) } + assigned->values);
    });
    return status ? Result<QString>(id) : status;
}

// Follows the last instruction, also if earlier ones are missing.
Result<int> InstructionStore::nextPosition(qint64 plan, const QString& planId)
{
    const auto last = m_database.value(
        QStringLiteral("SELECT COALESCE((SELECT max(position) FROM instructions WHERE plan = number), 0) FROM plans"
                       " WHERE number = ?"),
        { plan });
    if (!last)
        return last.status();
    if (!last->isValid())
        return { Error::UnknownPlan, { planId } };
    return last->toInt() + 1;
}

Status InstructionStore::update(const QString& planId, const QString& instruction, const Fields& fields)
{
    const Status unknown(Error::UnknownInstruction, { instruction });
    const auto plan = PlanId::toNumber(planId);
    const auto position = InstructionRow::positionOf(planId, instruction);
    if (!plan || !position)
        return unknown;
    const auto assigned = InstructionRow::assignment(fields);
    if (!assigned)
        return assigned.status();
    // The position keeps its value, so that the statement finds an instruction also without fields.
    const QStringList columns = assigned->columns + QStringList{ QStringLiteral("position") };
    const Result<int> changed =
        m_database.change(QStringLiteral("UPDATE instructions SET %1 = ? WHERE plan = ? AND position = ?")
                              .arg(columns.join(QStringLiteral(" = ?, "))),
            assigned->values + QVariantList{ *position, *plan, *position });
    if (!changed)
        return changed.status();
    return *changed == 1 ? Status() : unknown;
}

Status InstructionStore::endBefore(const QString& planId, const QDate& day)
{
    return m_database.execute(
        QStringLiteral("UPDATE instructions SET ended = 1 WHERE plan = ? AND day < ? AND ended IS NOT 1"),
        { PlanId::toNumber(planId).value_or(0), day.toString(Qt::ISODate) });
}

Result<QMap<QString, InstructionStore::Fields>> InstructionStore::ofPlan(const QString& planId)
{
    return read(planId, QString(), {});
}

Result<QMap<QString, InstructionStore::Fields>> InstructionStore::ofDay(const QString& planId, const QDate& day)
{
    return read(planId, QStringLiteral(" AND day = ?"), { day.toString(Qt::ISODate) });
}

Result<double> InstructionStore::used(const QString& planId, bool isAmount)
{
    constexpr double FenPerYuan = 100;
    const auto plan = PlanId::toNumber(planId);
    if (!plan)
        return 0.0;
    const QString unit = isAmount ? QStringLiteral("fen") : QStringLiteral("quantity");
    const auto sum = m_database.value(QStringLiteral("SELECT total(CASE ended WHEN 1 THEN filled_%1 ELSE issued_%1 END)"
                                                     " FROM instructions WHERE plan = ?")
                                          .arg(unit),
        { *plan });
    if (!sum)
        return sum.status();
    return isAmount ? sum->toDouble() / FenPerYuan : sum->toDouble();
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
