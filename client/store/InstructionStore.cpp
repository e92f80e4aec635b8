#include "InstructionStore.h"

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
        QSqlQuery known =
            m_database.query(QStringLiteral("SELECT (SELECT count(*) FROM plan_instructions WHERE plan = number)"
                                            " FROM plans WHERE number = ?"),
                { *plan });
        if (!known.next())
            return { Error::UnknownPlan, { planId } };
        id = instructionId(planId, known.value(0).toInt() + 1);
        known.finish();
        Status added =
            m_database.execute(QStringLiteral("INSERT INTO plan_instructions (plan, id, day) VALUES (?, ?, ?)"),
                { *plan, id, day.toString(Qt::ISODate) });
        return added ? writeFields(*plan, id, fields) : added;
    });
    if (!status)
        return status;
    return id;
}

Status InstructionStore::update(const QString& planId, const QString& instruction, const Fields& fields)
{
    const Status unknown(Error::UnknownInstruction, { instruction });
    const auto plan = PlanId::toNumber(planId);
    if (!plan)
        return unknown;
    return m_database.transaction([&]() -> Status {
        QSqlQuery known = m_database.query(
            QStringLiteral("SELECT 1 FROM plan_instructions WHERE plan = ? AND id = ?"), { *plan, instruction });
        if (!known.next())
            return unknown;
        known.finish();
        return writeFields(*plan, instruction, fields);
    });
}

QMap<QString, InstructionStore::Fields> InstructionStore::ofPlan(const QString& planId)
{
    return read(planId, QString());
}

QMap<QString, InstructionStore::Fields> InstructionStore::ofDay(const QString& planId, const QDate& day)
{
    return read(planId, day.toString(Qt::ISODate));
}

Status InstructionStore::writeFields(qint64 plan, const QString& instruction, const Fields& fields)
{
    QSqlQuery insert = m_database.prepare(
        QStringLiteral("INSERT OR REPLACE INTO instruction_fields (plan, id, key, value) VALUES (?, ?, ?, ?)"));
    for (auto it = fields.cbegin(); it != fields.cend(); ++it) {
        Status status = Database::executePrepared(insert, { plan, instruction, it.key(), it.value().toString() });
        if (!status)
            return status;
    }
    return {};
}

// An empty day means every day.
QMap<QString, InstructionStore::Fields> InstructionStore::read(const QString& planId, const QString& day)
{
    const auto plan = PlanId::toNumber(planId);
    if (!plan)
        return {};
    QSqlQuery query =
        m_database.query(QStringLiteral("SELECT i.id, f.key, f.value FROM plan_instructions AS i"
                                        " LEFT JOIN instruction_fields AS f ON f.plan = i.plan AND f.id = i.id"
                                        " WHERE i.plan = ? AND (? = '' OR i.day = ?) ORDER BY i.id, f.key"),
            { *plan, day, day });
    QMap<QString, Fields> instructions;
    SharedTexts texts;
    auto instruction = instructions.end();
    while (query.next()) {
        const QString id = query.value(0).toString();
        if (instruction == instructions.end() || instruction.key() != id)
            instruction = instructions.insert(instructions.cend(), id, Fields());
        if (!query.value(1).isNull())
            instruction->insert(instruction->cend(), texts.share(query.value(1)), texts.share(query.value(2)));
    }
    return instructions;
}
