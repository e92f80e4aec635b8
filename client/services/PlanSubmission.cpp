#include "PlanSubmission.h"

#include "ClientClock.h"
#include "ClientSession.h"
#include "HistoryStore.h"
#include "Kelvo_Fields.h"
#include "PlanChanges.h"
#include "PlanCheck.h"
#include "PlanFacts.h"
#include "PlanLife.h"
#include "PlanRow.h"
#include "UserStore.h"

#include <QLocale>

namespace {

using Record = PlanStore::Record;

const Security* securityOf(ClientSession& session, const Record& record)
{
    return session.market().find(record.value(Kelvo_Fields::Security::symbol).toString());
}

/// What is stored about a sent record.
struct StoredFacts {
    /// Number of the plan that an earlier submission of the request stored; 0 if none did.
    qint64 planOfRequest = 0;
    PlanRights rights;
    CloseHistory closes;
    /// Quantity of the security that may be sold, in stored units.
    qint64 tradeableQuantity = 0;
    /// What the changed plan uses.
    PlanUse use;
};

/// `planId`: the changed plan; empty for a new one.
Result<StoredFacts> factsOf(
    ClientSession& session, const Record& record, const QString& request, const QString& planId = {})
{
    StoredFacts facts;
    ValueReader reader(session.database());
    HistoryStore::addTo(reader, request, facts.planOfRequest);
    PlanRightsReader::addTo(reader, session.user().id, record, clientToday(), facts.rights);
    if (const Security* security = securityOf(session, record)) {
        SecurityStore::addTo(reader, security->symbol, facts.closes);
        PlanFacts::addTo(reader, record, *security, facts.tradeableQuantity);
    }
    if (!planId.isEmpty())
        InstructionStore::addTo(reader, planId, facts.use);
    const Status status = reader.read();
    return status ? Result<StoredFacts>(facts) : status;
}

PlanCheck::Known knownFor(ClientSession& session, const Record& record, const StoredFacts& facts)
{
    const QDate today = clientToday();
    PlanCheck::Known known{ session.market(), session.calendar(), today, session.user().id, facts.rights, {}, 0 };
    if (const Security* security = securityOf(session, record)) {
        known.closes = PlanFacts::closesBefore(facts.closes, session.calendar(), *security, today);
        known.sellable = static_cast<double>(facts.tradeableQuantity * security->displayFactor);
    }
    return known;
}

// A request that was stored before is answered with its plan.
Result<QString> createUnlessStored(ClientSession& session, const Record& record, const QString& request)
{
    const Result<StoredFacts> facts = factsOf(session, record, request);
    if (!facts)
        return facts.status();
    if (facts->planOfRequest != 0)
        return PlanId::fromNumber(facts->planOfRequest);
    if (Status refused = PlanCheck::creationError(record, knownFor(session, record, *facts)); !refused)
        return refused;
    return session.plans().create(record, session.changeNow(request));
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
        captions << QStringLiteral("状态");
    return { Error::PlanChangedMeanwhile,
        { conflict.user, QLocale::c().toString(conflict.time, QStringLiteral("yyyy-MM-dd HH:mm:ss")),
            captions.join(QStringLiteral("、")) } };
}

Status storeChange(ClientSession& session, const PlanChange& change, std::optional<PlanConflict>& conflict)
{
    PlanStore plans = session.plans();
    const Result<StoredPlan> stored = plans.lockedPlan(change.planId);
    if (!stored)
        return stored.status();
    if (stored->id.isEmpty())
        return { Error::UnknownPlan, { change.planId } };
    const Result<StoredFacts> facts = factsOf(session, change.record, change.request, change.planId);
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
        refused = PlanCheck::changeError(stored->record, change.record, PlanFacts::used(*stored, facts->use),
            knownFor(session, change.record, *facts));
    return refused ? plans.replace(*stored, change.record, session.changeNow(change.request)) : refused;
}

void noteStored(const QString& planId, int version)
{
    ClientSession& session = ClientSession::instance();
    session.requests().clear();
    session.versions().note(planId, version);
}

/// The id of the plan that a failed transaction stored all the same, or that another one stored for the same request.
Result<QString> storedDespite(const Status& failure, const QString& request, int version)
{
    ClientSession& session = ClientSession::instance();
    if (!session.database().commitFailed() && failure.error() != Error::AlreadyStored)
        return failure;
    const auto find = [request](Database& database) { return HistoryStore(database).planOfRequest(request); };
    const auto known = [version](qint64 number) {
        const QString id = number == 0 ? QString() : PlanId::fromNumber(number);
        if (!id.isEmpty())
            noteStored(id, version);
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

void PlanSubmission::acknowledge(const QString& planId, int version)
{
    noteStored(planId, version);
    Q_EMIT PlanEvents::instance().planStored(planId);
}

// Rights and plans are read, checked and written in one transaction, so that they cannot change in between.
Result<QString> PlanSubmission::create(const Record& record, const QString& request)
{
    if (const Status refused = checkForm(); !refused)
        return refused;
    ClientSession& session = ClientSession::instance();
    QString id;
    const Status status = session.database().transaction([&] {
        const Result<QString> created = createUnlessStored(session, record, request);
        id = created.valueOr(QString());
        return created.status();
    });
    return status ? Result<QString>(id) : storedDespite(status, request, 1);
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
