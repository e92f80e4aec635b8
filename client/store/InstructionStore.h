#pragma once

#include "Database.h"
#include "InstructionRow.h"

#include <QDate>

/// The instructions of plans, with their price, quantities, amounts and fills as fields.
class InstructionStore {
public:
    using Fields = InstructionRow::Fields;

    explicit InstructionStore(Database& database);

    /// Adds an instruction of the day and returns its id, ascending within its plan. Refuses an unknown plan, and
    /// fields that `InstructionRow` refuses; the day is not one of them.
    Result<QString> add(const QString& planId, const QDate& day, const Fields& fields);
    /// Sets the given fields and keeps the others, for example for a fill. Refuses an unknown instruction.
    Status update(const QString& planId, const QString& instructionId, const Fields& fields);

    /// Ends the open instructions of a plan that were issued before a day.
    Status endBefore(const QString& planId, const QDate& day);

    /// Texts by field key, by instruction id, including the day; empty if the plan is unknown or has none.
    Result<QMap<QString, Fields>> ofPlan(const QString& planId);
    /// Like `ofPlan`, for one day only.
    Result<QMap<QString, Fields>> ofDay(const QString& planId, const QDate& day);

    /// The sum of what ended instructions of a plan have filled and running ones have issued: amounts in yuan, or
    /// quantities in displayed units.
    Result<double> used(const QString& planId, bool isAmount);

private:
    Result<int> nextPosition(qint64 plan, const QString& planId);
    Result<QMap<QString, Fields>> read(const QString& planId, const QString& condition, const QVariantList& values);

    Database& m_database;
};
