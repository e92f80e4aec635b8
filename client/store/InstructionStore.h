#pragma once

#include "Database.h"

#include <QDate>
#include <QMap>

/// Instructions that plans were turned into, with their quantities, amounts and fills as fields.
class InstructionStore {
public:
    using Fields = QMap<QString, QVariant>;

    explicit InstructionStore(Database& database);

    /// Adds an instruction of the day and returns its id, ascending within its plan. An unknown plan is refused.
    Result<QString> add(const QString& planId, const QDate& day, const Fields& fields);
    /// Sets the given fields and keeps the others, as when a fill is booked. An unknown instruction is refused.
    Status update(const QString& planId, const QString& instructionId, const Fields& fields);

    /// Instruction id to texts by field key; empty when the plan is unknown or has none.
    QMap<QString, Fields> ofPlan(const QString& planId);
    /// As `ofPlan`, the instructions of one day only.
    QMap<QString, Fields> ofDay(const QString& planId, const QDate& day);

private:
    Status writeFields(qint64 plan, const QString& instructionId, const Fields& fields);
    QMap<QString, Fields> read(const QString& planId, const QString& day);

    Database& m_database;
};
