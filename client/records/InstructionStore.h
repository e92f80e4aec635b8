#pragma once

#include "Database.h"
#include "HistoryStore.h"
#include "InstructionRow.h"

#include <QDate>
#include <QHash>

/// What the instructions of a plan add up to.
struct PlanUse {
    /// What ended ones have filled and running ones have issued: quantities in displayed units, and amounts.
    double quantity = 0;
    double yuan = 0;
    /// The day of the first one that has not ended; invalid if all have ended.
    QDate openSince;
};

/// The instructions of plans, with their price, quantities, amounts and fills as fields.
class InstructionStore {
public:
    using Fields = InstructionRow::Fields;

    explicit InstructionStore(Database& database);

    /// Adds an instruction of the day and returns its id, ascending within its plan. Refuses an unknown plan, and
    /// fields that `InstructionRow` refuses; the day is not one of them.
    Result<QString> add(const QString& planId, const QDate& day, const Fields& fields, const Change& change);
    /// Sets the given fields and keeps the others, for example for a fill. Refuses an unknown instruction.
    Status update(const QString& planId, const QString& instructionId, const Fields& fields, const Change& change);

    /// Ends the open instructions of a plan that were issued before a day.
    Status endBefore(const QString& planId, const QDate& day, const Change& change);

    /// Texts by field key, by instruction id, including the day; empty if the plan is unknown or has none.
    Result<QMap<QString, Fields>> ofPlan(const QString& planId);
    /// Like `ofPlan`, for one day only.
    Result<QMap<QString, Fields>> ofDay(const QString& planId, const QDate& day);

    /// By plan id. Plans without instructions and unknown ones are missing.
    Result<QHash<QString, PlanUse>> used(const QStringList& planIds);
    /// Adds what one plan uses to what is read.
    static void addTo(ValueReader& reader, const QString& planId, PlanUse& use);

private:
    /// The plan of new instructions: its version, and the position of the next one.
    struct Place {
        int version = 0;
        int position = 0;
    };

    Result<Place> nextPlace(qint64 plan);
    Result<QMap<QString, Fields>> read(const QString& planId, const QString& condition, const QVariantList& values);

    Database& m_database;
};
