#include "NoticeMerger.h"

#include <chrono>

namespace {

constexpr std::chrono::milliseconds Pause(200);

} // namespace

NoticeMerger::NoticeMerger(const std::function<void()>& act, const std::function<bool()>& mayAct)
    : m_act(act)
    , m_mayAct(mayAct)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(Pause);
    connect(&m_pause, &QTimer::timeout, this, &NoticeMerger::actOnPending);
}

void NoticeMerger::notice()
{
    m_isPending = true;
    if (!m_pause.isActive())
        actOnPending();
}

// A notice that arrives while `m_act` works needs another action.
void NoticeMerger::actOnPending()
{
    if (!m_isPending)
        return;
    if (m_mayAct()) {
        m_isPending = false;
        m_act();
    }
    m_pause.start();
}
