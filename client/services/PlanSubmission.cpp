#include "PlanSubmission.h"

#include "ClientSession.h"
#include "ErrorText.h"
#include "HistoryStore.h"
#include "PlanChanges.h"
#include "PlanCheck.h"
#include "PlanFacts.h"
#include "PlanLife.h"
#include "PlanRow.h"
#include "SubmissionFacts.h"
#include "UserStore.h"

#include <QLocale>

namespace {

using Record = PlanStore::Record;

KeptFacts& keptFacts()
{
    static KeptFacts facts;
    return facts;
}

// With the facts of an earlier plan. Empty if nothing was stored: only present facts refuse a plan.
Result<QString> createByKeptFacts(ClientSession& session, const Record& record, const QString& request)
{
    const SubmissionFacts* const facts = keptFacts().find(session, record);
    if (!facts || !PlanCheck::creationError(record, facts->known(session, record)))
        return QString();
    const Result<QString> id = session.plans().createIf(keptFacts().version(), record, session.changeNow(request));
    if (id && !id->isEmpty())
        keptFacts().noteStored(session);
    return id;
}

// A request that was stored before is answered with its plan.
Result<QString> createUnlessStored(
    ClientSession& session, const Record& record, const QString& request, SubmissionFacts& facts)
{
    const Result<SubmissionFacts> read = SubmissionFacts::read(session, record, request);
    if (!read)
        return read.status();
    facts = *read;
    if (facts.planOfRequest != 0)
        return PlanId::fromNumber(facts.planOfRequest);
    if (Status refused = PlanCheck::creationError(record, facts.known(session, record)); !refused)
        return refused;
    return session.plans().create(record, session.changeNow(request));
}

// Rights and plans are read, checked and written in one transaction, so that they cannot change in between.
Result<QString> createInTransaction(ClientSession& session, const Record& record, const QString& request)
{
    QString id;
    SubmissionFacts facts;
    const Status status = session.database().transaction([&] {
        const Result<QString> created = createUnlessStored(session, record, request, facts);
        id = created.valueOr(QString());
        return created.status();
    });
    if (!status)
        return status;
    keptFacts().keep(session, record, facts);
    return id;
}

struct PlanChange {
    const QString& planId;
    int version; ///< the one that it was made from
    const Record& record;
    const QString& request;
};

/// Describes the conflict of a change that was made from an older version than the stored one.
Result<PlanConflict> conflictOf(ClientSession& session, const StoredPlan& stored, const PlanChange& change)
{
    const auto later = HistoryStore(session.database()).after(PlanId::toNumber(stored.id).value_or(0), change.version);
    if (!later)
        return later.status();
    if (later->isEmpty())
        return { Error::PlanNotRead, { stored.id } };
    const HistoryEntry& last = later->constLast();
    const Result<StoredUser> user = UserStore(session.database()).user(last.user);
    if (!user)
        return user.status();
    PlanConflict conflict{ stored, stored, change.record, user->name.isEmpty() ? last.user : user->name, last.time };
    conflict.opened.version = change.version;
    // Backwards, so that the first change decides.
    for (auto entry = later->crbegin(); entry != later->crend(); ++entry) {
        if (entry->event == HistoryEvent::Changed)
            conflict.opened.record = entry->before;
        else
            conflict.opened.state =
                PlanRow::state(entry->before.value(QStringLiteral("state")).toString()).value_or(conflict.opened.state);
    }
    return conflict;
}

Status statusOf(const PlanConflict& conflict)
{
    QStringList captions = PlanChanges::captions(conflict.opened.record, conflict.stored.record);
    if (conflict.opened.state != conflict.stored.state)
        captions << captionText(QStringLiteral(QT_TRANSLATE_NOOP("Caption", "状态")));
    return { Error::PlanChangedMeanwhile,
        { conflict.user, QLocale::c().toString(conflict.time, QStringLiteral("yyyy-MM-dd HH:mm:ss")),
            listText(captions) } };
}

Status storeChange(ClientSession& session, const PlanChange& change, std::optional<PlanConflict>& conflict)
{
    PlanStore plans = session.plans();
    const Result<StoredPlan> stored = plans.lockedPlan(change.planId);
    if (!stored)
        return stored.status();
    if (stored->id.isEmpty())
        return { Error::UnknownPlan, { change.planId } };
    const Result<SubmissionFacts> facts = SubmissionFacts::read(session, change.record, change.request, change.planId);
    if (!facts || facts->planOfRequest != 0)
        return facts.status();
    if (change.version == 0)
        return { Error::PlanNotRead, { change.planId } };
    if (change.version != stored->version) {
        const Result<PlanConflict> found = conflictOf(session, *stored, change);
        if (!found)
            return found.status();
        conflict = *found;
        return statusOf(*conflict);
    }
    Status refused = PlanLife::changeError(*stored);
    if (refused)
        refused = PlanCheck::changeError(
            stored->record, change.record, PlanFacts::used(*stored, facts->use), facts->known(session, change.record));
    return refused ? plans.replace(*stored, change.record, session.changeNow(change.request)) : refused;
}

void noteStored(const QString& request, const QString& planId, int version)
{
    ClientSession& session = ClientSession::instance();
    session.dropLookUp(request);
    session.requests().forget(request);
    session.versions().note(planId, version);
}

/// The id of the plan that a failed transaction stored all the same, or that another one stored for the same request.
Result<QString> storedDespite(const Status& failure, const QString& request, int version)
{
    ClientSession& session = ClientSession::instance();
    if (!session.database().commitFailed() && failure.error() != Error::AlreadyStored)
        return failure;
    const auto find = [request](Database& database) { return HistoryStore(database).planOfRequest(request); };
    const auto known = [request, version](qint64 number) {
        const QString id = number == 0 ? QString() : PlanId::fromNumber(number);
        if (!id.isEmpty())
            noteStored(request, id, version);
        Q_EMIT PlanEvents::instance().outcomeKnown(UnknownRequest::Plan, number != 0, id);
    };
    const Result<qint64> stored = session.lookUp(request, find, known);
    if (!stored) {
        Q_EMIT PlanEvents::instance().outcomeUnknown();
        return Status(Error::OutcomeUnknown, {}, failure);
    }
    return *stored == 0 ? Result<QString>(failure) : PlanId::fromNumber(*stored);
}

std::function<Status()>& formCheck()
{
    static std::function<Status()> check;
    return check;
}

Status checkForm()
{
    return formCheck() ? formCheck()() : Status();
}

} // namespace

void PlanSubmission::setFormCheck(const std::function<Status()>& check)
{
    formCheck() = check;
}

void PlanSubmission::acknowledge(const QString& request, const QString& planId, int version)
{
    noteStored(request, planId, version);
    Q_EMIT PlanEvents::instance().planStored(planId);
}

Result<QString> PlanSubmission::create(const Record& record, const QString& request)
{
    if (const Status refused = checkForm(); !refused)
        return refused;
    ClientSession& session = ClientSession::instance();
    Result<QString> id = createByKeptFacts(session, record, request);
    if (id && id->isEmpty())
        id = createInTransaction(session, record, request);
    return id ? id : storedDespite(id.status(), request, 1);
}

Status PlanSubmission::change(const QString& planId, int version, const Record& record, const QString& request,
    std::optional<PlanConflict>& conflict)
{
    if (const Status refused = checkForm(); !refused)
        return refused;
    ClientSession& session = ClientSession::instance();
    const Status status = session.database().transaction([&] {
        return storeChange(session, { planId, version, record, request }, conflict);
    });
    return status ? status : storedDespite(status, request, version + 1).status();
}

Result<std::optional<PlanConflict>> PlanSubmission::changeSince(const QString& planId, int version)
{
    ClientSession& session = ClientSession::instance();
    const Result<StoredPlan> stored = session.isOpen() ? session.plans().plan(planId) : StoredPlan();
    if (!stored)
        return stored.status();
    if (stored->version <= version)
        return std::optional<PlanConflict>();
    const Result<PlanConflict> found = conflictOf(session, *stored, { planId, version, Record(), QString() });
    return found ? Result<std::optional<PlanConflict>>(std::make_optional(*found)) : found.status();
}
