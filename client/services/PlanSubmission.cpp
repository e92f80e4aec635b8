#include "PlanSubmission.h"

#include "ClientClock.h"
#include "ClientSession.h"
#include "HistoryStore.h"
#include "Kelvo_Fields.h"
#include "PlanChanges.h"
#include "PlanCheck.h"
#include "PlanFacts.h"
#include "PlanRow.h"
#include "UserStore.h"

#include <QLocale>

namespace {

using Record = PlanStore::Record;

Result<PlanCheck::Known> knownFor(ClientSession& session, const Record& record)
{
    const QDate today = clientToday();
    const QString& user = session.user().id;
    const auto rights = PlanRightsReader(session.database(), today).read(user, record);
    if (!rights)
        return rights.status();
    const Security* security = session.market().find(record.value(Kelvo_Fields::Security::symbol).toString());
    const auto closes = security ? PlanFacts::closesBefore(session, *security, today) : QVector<qint64>();
    if (!closes)
        return closes.status();
    const auto sellable = security ? PlanFacts::sellable(session, record, *security) : 0.0;
    if (!sellable)
        return sellable.status();
    return PlanCheck::Known{ session.market(), session.calendar(), today, user, *rights, *closes, *sellable };
}

// A request that was stored before is answered with its plan.
Result<QString> createUnlessStored(ClientSession& session, const Record& record, const QString& request)
{
    const Result<qint64> stored = HistoryStore(session.database()).planOfRequest(request);
    if (!stored)
        return stored.status();
    if (*stored != 0)
        return PlanId::fromNumber(*stored);
    const auto known = knownFor(session, record);
    if (!known)
        return known.status();
    if (Status refused = PlanCheck::creationError(record, *known); !refused)
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
    const Result<qint64> sent = HistoryStore(session.database()).planOfRequest(change.request);
    if (!sent || *sent != 0)
        return sent.status();
    PlanStore plans = session.plans();
    if (Status status = plans.lock(change.planId); !status)
        return status;
    const Result<StoredPlan> stored = plans.plan(change.planId);
    if (!stored)
        return stored.status();
    if (stored->id.isEmpty())
        return { Error::UnknownPlan, { change.planId } };
    if (change.version == 0)
        return { Error::PlanNotRead, { change.planId } };
    if (change.version != stored->version) {
        const Result<PlanConflict> found = conflictOf(session, *stored, change);
        if (!found)
            return found.status();
        conflict = *found;
        return statusOf(*conflict);
    }
    const auto known = knownFor(session, change.record);
    if (!known)
        return known.status();
    const auto used = PlanFacts::used(session, *stored);
    if (!used)
        return used.status();
    Status refused = PlanCheck::changeError(stored->record, change.record, *used, *known);
    return refused ? plans.modify(change.planId, change.version, change.record, session.changeNow(change.request))
                   : refused;
}

/// The id of the plan that a failed transaction stored all the same, which is possible if its COMMIT failed.
Result<QString> storedDespite(const Status& failure, const QString& request)
{
    Database& database = ClientSession::instance().database();
    if (!database.commitFailed())
        return failure;
    const Result<qint64> stored = HistoryStore(database).planOfRequest(request);
    if (!stored)
        return Status(Error::OutcomeUnknown, {}, failure);
    return *stored == 0 ? Result<QString>(failure) : PlanId::fromNumber(*stored);
}

} // namespace

// Rights and plans are read, checked and written in one transaction, so that they cannot change in between.
Result<QString> PlanSubmission::create(const Record& record, const QString& request)
{
    ClientSession& session = ClientSession::instance();
    QString id;
    const Status status = session.database().transaction([&] {
        const Result<QString> created = createUnlessStored(session, record, request);
        id = created.valueOr(QString());
        return created.status();
    });
    return status ? Result<QString>(id) : storedDespite(status, request);
}

Status PlanSubmission::change(const QString& planId, int version, const Record& record, const QString& request,
    std::optional<PlanConflict>& conflict)
{
    ClientSession& session = ClientSession::instance();
    const Status status = session.database().transaction([&] {
        return storeChange(session, { planId, version, record, request }, conflict);
    });
    return status ? status : storedDespite(status, request).status();
}
