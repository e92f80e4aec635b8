#include "PlanCounter.h"

#include "ClientSession.h"

#include <utility>

PlanCounter::PlanCounter()
    : m_user(ClientSession::instance().user())
    , m_thread(QStringLiteral("plan counter"), ClientSession::instance().database().location())
{
}

void PlanCounter::count()
{
    if (std::exchange(m_isCounting, true)) {
        m_isOutdated = true;
        return;
    }
    m_thread.run([this](Database& database, const Status& opened) {
        const Result<int> plans = opened ? PlanStore(database, m_user).count() : opened;
        const int number = plans.valueOr(0);
        if (!m_thread.isStopping())
            QMetaObject::invokeMethod(
                this, [this, number] { take(number); }, Qt::QueuedConnection);
    });
}

// A failure is reported by the next read that has a result.
void PlanCounter::take(int plans)
{
    m_isCounting = false;
    if (std::exchange(m_isOutdated, false))
        count();
    else if (plans > 0)
        Q_EMIT counted(plans);
}
