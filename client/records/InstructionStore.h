#pragma once

#include "Database.h"
#include "HistoryStore.h"
#include "InstructionRow.h"

#include <QDate>
#include <QHash>
#include <QSet>

/// What the instructions of a plan add up to.
struct PlanUse {
    /// What ended ones have filled and running ones have issued: quantities in displayed units, and amounts.
    double quantity = 0;
    double yuan = 0;
    /// The day of the first one that has not ended; invalid if all have ended.
    QDate openSince;
};

/// How far a plan has come.
struct PlanProgress {
    PlanUse used;
    /// What has been filled: a quantity in displayed units, and an amount.
    double filledQuantity = 0;
    double filledYuan = 0;
    /// The last day with an instruction or a refusal; invalid if there is none.
    QDate lastDay;
    /// Why the plan got no instruction on the last day; empty if it got one.
    QString refusal;
};

/// What happened on the days of a plan.
struct PlanDays {
    /// By instruction id.
    QMap<QString, InstructionRow::Fields> instructions;
    /// The reasons why a day got no instruction.
    QMap<QDate, QString> refusals;

    /// The days with an instruction or a reason.
    QSet<QDate> handled() const;
};

/// The instructions of plans, with their price, quantities, amounts and fills as fields.
class InstructionStore {
public:
    using Fields = InstructionRow::Fields;

    explicit InstructionStore(Database& database);

    /// Adds an instruction of the day and returns its id, ascending within its plan. Refuses an unknown plan, and
    /// fields that `InstructionRow` refuses; the day is not one of them. Positions and cash follow, see `Bookings`:
    /// more than may be sold is refused.
    Result<QString> add(const QString& planId, const QDate& day, const Fields& fields, const Change& change);
    /// Sets the given fields and keeps the others, for example for a fill. Refuses an unknown instruction.
    Status update(const QString& planId, const QString& instructionId, const Fields& fields, const Change& change);

    /// Notes why a plan got no instruction on a day, instead of an earlier reason of that day.
    Status refuse(const QString& planId, const QDate& day, const QString& reason, const Change& change);

    /// Called first in a transaction that issues: waits until others have issued, so that what is read afterwards of
    /// positions and cash stays as it is.
    Status waitForIssue();

    /// Ends the open instructions of a plan that were issued before a day.
    Status endBefore(const QString& planId, const QDate& day, const Change& change);

    /// Texts by field key, by instruction id, including the day; empty if the plan is unknown or has none.
    Result<QMap<QString, Fields>> ofPlan(const QString& planId);
    /// With the reasons why days got none.
    Result<PlanDays> daysOf(const QString& planId);
    /// Like `ofPlan`, for one day only.
    Result<QMap<QString, Fields>> ofDay(const QString& planId, const QDate& day);

    /// What plans use on a day, by plan id. Open instructions of the days before it, of which `openSince` tells, count
    /// as ended. Plans without instructions and unknown ones are missing.
    Result<QHash<QString, PlanUse>> used(const QStringList& planIds, const QDate& day);
    /// By plan id. Unknown plans are missing.
    Result<QHash<QString, PlanProgress>> progress(const QStringList& planIds);
    /// Adds what one plan uses to what is read.
    static void addTo(ValueReader& reader, const QString& planId, PlanUse& use);

private:
    /// The plan of new instructions: its version, and the position of the next one.
    struct Place {
        int version = 0;  ///< 0 for an unknown plan
        int position = 0; ///< 0 if all are taken
    };

    Result<Place> nextPlace(qint64 plan);
    Result<QMap<QString, Fields>> read(const QString& planId, const QString& condition, const QVariantList& values);

    Database& m_database;
};
