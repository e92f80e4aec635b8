#include "InstructionStore.h"

#include "Orlo_Fields.h"
#include "PlanCodes.h"
#include "PlanStore.h"

#include <QSet>

namespace {

/// Returns one shared copy of texts that occur in many rows.
class SharedTexts {
public:
    QString share(const QVariant& text) { return *m_texts.insert(text.toString()); }

private:
    QSet<QString> m_texts;
};

QString instructionId(const QString& planId, int index)
{
    return QStringLiteral("%1-%2").arg(planId).arg(index, 6, 10, QLatin1Char('0'));
}

} // namespace

InstructionStore::InstructionStore(Database& database)
    : m_database(database)
{
}

Result<QString> InstructionStore::add(const QString& planId, const QDate& day, const Fields& fields)
{
    const auto plan = PlanId::toNumber(planId);
    if (!plan)
        return { Error::UnknownPlan, { planId } };
    QString id;
    Status status = m_database.transaction([&]() -> Status {
        const Result<QString> next = nextId(*plan, planId);
        if (!next)
            return next.status();
        id = *next;
        Status added =
            m_database.execute(QStringLiteral("INSERT INTO plan_instructions (plan, id, day) VALUES (?, ?, ?)"),
                { *plan, id, day.toString(Qt::ISODate) });
        return added ? writeFields(*plan, id, fields) : added;
    });
    return status ? Result<QString>(id) : status;
}

// Follows the last id, also if earlier ones are missing.
Result<QString> InstructionStore::nextId(qint64 plan, const QString& planId)
{
    const auto last = m_database.value(
        QStringLiteral("SELECT COALESCE((SELECT max(id) FROM plan_instructions WHERE plan = number), '') FROM plans"
                       " WHERE number = ?"),
        { plan });
    if (!last)
        return last.status();
    if (!last->isValid())
        return { Error::UnknownPlan, { planId } };
    return instructionId(planId, last->toString().section(QLatin1Char('-'), -1).toInt() + 1);
}

Status InstructionStore::update(const QString& planId, const QString& instruction, const Fields& fields)
{
    const Status unknown(Error::UnknownInstruction, { instruction });
    const auto plan = PlanId::toNumber(planId);
    if (!plan)
        return unknown;
    return m_database.transaction([&]() -> Status {
        const auto known = m_database.value(
            QStringLiteral("SELECT 1 FROM plan_instructions WHERE plan = ? AND id = ?"), { *plan, instruction });
        if (!known)
            return known.status();
        if (!known->isValid())
            return unknown;
        return writeFields(*plan, instruction, fields);
    });
}

Result<QMap<QString, InstructionStore::Fields>> InstructionStore::ofPlan(const QString& planId)
{
    return read(planId, QString());
}

Result<QMap<QString, InstructionStore::Fields>> InstructionStore::ofDay(const QString& planId, const QDate& day)
{
    return read(planId, day.toString(Qt::ISODate));
}

Result<double> InstructionStore::used(const QString& planId, bool isAmount)
{
    using namespace PlanCodes;
    const auto plan = PlanId::toNumber(planId);
    if (!plan)
        return 0.0;
    const QString& filled = isAmount ? Orlo_Fields::Security::cumAmount : FieldId::FilledQty;
    const QString& issued = isAmount ? FieldId::IssuedAmount : FieldId::IssuedQty;
    const auto sum = m_database.value(QStringLiteral("SELECT total(CASE ended WHEN ? THEN filled ELSE issued END) FROM"
                                                     " (SELECT max(CASE key WHEN ? THEN value END) AS ended,"
                                                     " max(CASE key WHEN ? THEN value END) AS filled,"
                                                     " max(CASE key WHEN ? THEN value END) AS issued"
                                                     " FROM instruction_fields WHERE plan = ? GROUP BY id)"),
        { EndState::Ended, FieldId::EndState, filled, issued, *plan });
    return sum ? Result<double>(sum->toDouble()) : sum.status();
}

Status InstructionStore::writeFields(qint64 plan, const QString& instruction, const Fields& fields)
{
    QSqlQuery insert;
    Status status =
        m_database.prepare(QStringLiteral("INSERT INTO instruction_fields (plan, id, key, value) VALUES (?, ?, ?, ?)"
                                          " ON CONFLICT (plan, id, key) DO UPDATE SET value = excluded.value"),
            insert);
    for (auto it = fields.cbegin(); it != fields.cend() && status; ++it)
        status = m_database.executePrepared(insert, { plan, instruction, it.key(), it.value().toString() });
    return status;
}

// An empty day means every day.
Result<QMap<QString, InstructionStore::Fields>> InstructionStore::read(const QString& planId, const QString& day)
{
    const auto plan = PlanId::toNumber(planId);
    if (!plan)
        return QMap<QString, Fields>();
    QMap<QString, Fields> instructions;
    SharedTexts texts;
    auto instruction = instructions.end();
    Status status =
        m_database.read(QStringLiteral("SELECT i.id, f.key, f.value FROM plan_instructions AS i"
                                       " LEFT JOIN instruction_fields AS f ON f.plan = i.plan AND f.id = i.id"
                                       " WHERE i.plan = ? AND (? = '' OR i.day = ?) ORDER BY i.id, f.key"),
            { *plan, day, day }, [&](const QSqlQuery& row) {
                const QString id = row.value(0).toString();
                if (instruction == instructions.end() || instruction.key() != id)
                    instruction = instructions.insert(instructions.cend(), id, Fields());
                if (!row.value(1).isNull())
                    instruction->insert(instruction->cend(), texts.share(row.value(1)), texts.share(row.value(2)));
            });
    return status ? Result<QMap<QString, Fields>>(instructions) : status;
}
