#include "InstructionStore.h"

#include "PlanStore.h"
#include <QSet>

namespace {

/// Hands out one shared copy of texts that many rows have in common.
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

InstructionStore::Added InstructionStore::add(const QString& planId, const QDate& day, const Fields& fields)
{
    const auto plan = PlanId::toNumber(planId);
    if (!plan)
        return { QString(), QStringLiteral("计划%1不存在").arg(planId) };
    Added result;
    result.reason = m_database.transaction([&] {
        QSqlQuery known =
            m_database.query(QStringLiteral("SELECT (SELECT count(*) FROM plan_instructions WHERE plan = number)"
                                            " FROM plans WHERE number = ?"),
                { *plan });
        if (!known.next())
            return QStringLiteral("计划%1不存在").arg(planId);
        result.id = instructionId(planId, known.value(0).toInt() + 1);
        known.finish();
        const QString reason =
            m_database.execute(QStringLiteral("INSERT INTO plan_instructions (plan, id, day) VALUES (?, ?, ?)"),
                { *plan, result.id, day.toString(Qt::ISODate) });
        return reason.isEmpty() ? writeFields(*plan, result.id, fields) : reason;
    });
    if (!result.reason.isEmpty())
        result.id.clear();
    return result;
}

QString InstructionStore::update(const QString& planId, const QString& instruction, const Fields& fields)
{
    const QString unknown = QStringLiteral("指令%1不存在").arg(instruction);
    const auto plan = PlanId::toNumber(planId);
    if (!plan)
        return unknown;
    return m_database.transaction([&] {
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

QString InstructionStore::writeFields(qint64 plan, const QString& instruction, const Fields& fields)
{
    QSqlQuery insert = m_database.prepare(
        QStringLiteral("INSERT OR REPLACE INTO instruction_fields (plan, id, key, value) VALUES (?, ?, ?, ?)"));
    for (auto it = fields.cbegin(); it != fields.cend(); ++it) {
        const QString reason =
            Database::executePrepared(insert, { plan, instruction, it.key(), it.value().toString() });
        if (!reason.isEmpty())
            return reason;
    }
    return QString();
}

// An empty day stands for every day.
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
