#include "PlanReading.h"

#include "ClientSession.h"

Result<PlanLook> PlanReading::look(const PlanList& list, PlanSlice part)
{
    PlanLook look{ list, {}, false, 0, false };
    ClientSession& session = ClientSession::instance();
    if (!session.isOpen())
        return look;
    const auto count = [&](int most) {
        const Result<int> counted = session.plans().count(list, most);
        look.count = counted.valueOr(0);
        look.isCounted = look.count < most;
        return counted.status();
    };
    if (!list.isWhole()) {
        if (Status status = count(PlanList::Small + 1); !status)
            return status;
        look.list.isSmall = look.isCounted;
    }
    part.limit = qMax(part.limit, PageSize);
    if (Status status = slice(look.list, part, look.plans, look.hasMore); !status)
        return status;
    if (!list.isWhole())
        return look;
    look.isCounted = !part.from && !look.hasMore;
    if (look.isCounted) {
        look.count = look.plans.size();
        return look;
    }
    const Status status = count(CountedAtOnce);
    return status ? Result<PlanLook>(look) : status;
}

Status PlanReading::slice(const PlanList& list, PlanSlice slice, QVector<ListedPlan>& found, bool& hasMore)
{
    const int limit = slice.limit;
    ++slice.limit;
    if (Status status = addProgress(ClientSession::instance().plans().page(list, slice), found); !status)
        return status;
    hasMore = found.size() > limit;
    if (hasMore)
        found.removeAt(slice.isBackward ? 0 : limit);
    return {};
}

Status PlanReading::addProgress(const Result<QVector<StoredPlan>>& plans, QVector<ListedPlan>& listed)
{
    if (!plans)
        return plans.status();
    QStringList ids;
    for (const StoredPlan& plan : *plans)
        ids << plan.id;
    if (ids.isEmpty())
        return {};
    const auto progress = ClientSession::instance().instructions().progress(ids);
    for (const StoredPlan& plan : *plans)
        listed << ListedPlan{ plan, progress.valueOr({}).value(plan.id) };
    return progress.status();
}
