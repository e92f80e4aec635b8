#include "PlanStates.h"

#include "ClientClock.h"
#include "ErrorText.h"
#include "InstructionStore.h"
#include "MissedDays.h"
#include "PlanLife.h"
#include "PlanRequests.h"
#include "PlanRights.h"

namespace {

constexpr int PlansPerTransaction = 100;

Status reasonError(PlanState state, const QString& reason)
{
    if (state == PlanState::Stopped && reason.trimmed().isEmpty())
        return Error::NoReason;
    if (reason.size() > PlanStates::LongestReason)
        return { Error::ReasonTooLong, { QString::number(PlanStates::LongestReason) } };
    return {};
}

} // namespace

PlanStates::PlanStates(Database& database, const StoredUser& user, const TradeCalendar& calendar, const QDate& day)
    : m_database(database)
    , m_user(user)
    , m_calendar(calendar)
    , m_day(day)
{
}

StateChanges PlanStates::set(
    const QStringList& planIds, PlanState state, const QString& reason, const Progress& progress)
{
    StateChanges changes;
    changes.failure = reasonError(state, reason);
    for (int first = 0; first < planIds.size() && changes.failure && !changes.cancelled; first += PlansPerTransaction) {
        StateChanges some;
        const QStringList ids = planIds.mid(first, PlansPerTransaction);
        const QString request = PlanRequests::newId();
        changes.failure = m_database.transaction([&] { return setEach(ids, state, reason, request, some); });
        if (!changes.failure) {
            if (m_database.commitFailed() && !some.changed.isEmpty())
                changes.unknown = { some.changed, some.refused, request, m_database.process(),
                    first + PlansPerTransaction < planIds.size() };
            break;
        }
        changes.changed += some.changed;
        changes.refused += some.refused;
        changes.cancelled = !progress(qMin(first + PlansPerTransaction, static_cast<int>(planIds.size())));
    }
    return changes;
}

// The transaction stores all changes or none, so the first one has the request.
Status PlanStates::setEach(
    const QStringList& planIds, PlanState state, const QString& reason, const QString& request, StateChanges& changes)
{
    PlanStore plans(m_database, m_user);
    PlanRightsReader rights(m_database, m_day);
    for (const QString& id : planIds) {
        const Result<StoredPlan> plan = plans.lockedPlan(id);
        if (!plan)
            return plan.status();
        Status refused;
        if (Status read = readRefusal(rights, id, *plan, state, refused); !read)
            return read;
        if (!refused) {
            changes.refused << StateChanges::Refused{ id, refused };
            continue;
        }
        const Change change{ m_user.id, clientNow(), changes.changed.isEmpty() ? request : QString() };
        if (Status kept = keepMissedDays(*plan, change); !kept)
            return kept;
        if (Status set = plans.replaceState(*plan, state, reason, change); !set)
            return set;
        changes.changed << id;
    }
    return {};
}

// Later they could not be told from days on which the plan was paused.
Status PlanStates::keepMissedDays(const StoredPlan& plan, const Change& change)
{
    if (MissedDays::of(plan, {}, m_calendar, m_day).isEmpty())
        return {};
    InstructionStore instructions(m_database);
    const Result<PlanDays> days = instructions.daysOf(plan.id);
    if (!days)
        return days.status();
    const QVector<QDate> missed = MissedDays::of(plan, days->handled(), m_calendar, m_day);
    for (const QDate& day : missed) {
        if (Status kept = instructions.refuse(plan.id, day, errorText(Error::DayMissed), change); !kept)
            return kept;
    }
    return {};
}

// Those who may not trade with the plan's account leave its plans as they are.
Status PlanStates::readRefusal(
    PlanRightsReader& rights, const QString& id, const StoredPlan& plan, PlanState state, Status& refused) const
{
    if (plan.id.isEmpty()) {
        refused = { Error::UnknownPlan, { id } };
        return {};
    }
    refused = PlanLife::stateError(plan, state, m_day);
    if (!refused)
        return {};
    const Result<PlanRights> own = rights.ofHandler(m_user.id, plan);
    if (!own)
        return own.status();
    refused = own->tradeError(plan.record);
    return {};
}
