#include "PlanCounter.h"

#include "ClientSession.h"

#include <utility>

PlanCounter::PlanCounter()
    : m_user(ClientSession::instance().user())
    , m_thread(QStringLiteral("plan counter"), ClientSession::instance().database())
{
}

void PlanCounter::count(const PlanList& list)
{
    m_list = list;
    if (std::exchange(m_isCounting, true))
        m_isOutdated = true;
    else
        start();
}

void PlanCounter::start()
{
    m_thread.run([this, list = m_list](Database& database, const Status& opened) {
        const Result<Answer> counted = opened ? answer(PlanStore(database, m_user), list) : opened;
        if (!m_thread.isStopping())
            QMetaObject::invokeMethod(
                this, [this, counted] { take(counted); }, Qt::QueuedConnection);
    });
}

Result<PlanCounter::Answer> PlanCounter::answer(PlanStore plans, const PlanList& list)
{
    const auto landmarks = plans.landmarks(list, Step);
    if (!landmarks)
        return landmarks.status();
    if (landmarks->isEmpty())
        return Answer();
    PlanSlice rest;
    rest.from = landmarks->constLast().place;
    rest.isFromIncluded = true;
    rest.limit = Step;
    const Result<int> last = plans.countOf(list, rest);
    return last ? Result<Answer>({ landmarks->constLast().position + *last, *landmarks }) : last.status();
}

// A failure is reported by the next read that has a result.
void PlanCounter::take(const Result<Answer>& answer)
{
    m_isCounting = false;
    if (std::exchange(m_isOutdated, false))
        count(m_list);
    else if (answer)
        Q_EMIT counted(answer->plans, answer->landmarks);
}
