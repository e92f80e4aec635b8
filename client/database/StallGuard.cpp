#include "StallGuard.h"

#include <sys/socket.h>

#include <algorithm>

namespace {

constexpr std::chrono::milliseconds BetweenAttempts(200);

} // namespace

StallGuard::Call::Call(int socket, std::chrono::milliseconds longest)
    : Call([socket] { return socket; }, longest)
{
}

StallGuard::Call::Call(const std::function<int()>& socket, std::chrono::milliseconds longest)
    : m_socket(socket)
    , m_end(std::chrono::steady_clock::now() + longest)
{
    instance().add(this);
}

StallGuard::Call::~Call()
{
    instance().remove(this);
}

StallGuard::StallGuard()
    : m_thread([this] { run(); })
{
}

// Databases may be closed at the very end of the program, so the guard is never destroyed.
StallGuard& StallGuard::instance()
{
    static auto* const guard = new StallGuard;
    return *guard;
}

// The thread is only woken for a call that may end before the others.
void StallGuard::add(const Call* call)
{
    const std::lock_guard<std::mutex> locked(m_lock);
    m_calls.push_back(call);
    if (call->m_end >= m_wakes)
        return;
    m_wakes = call->m_end;
    m_changed.notify_one();
}

void StallGuard::remove(const Call* call)
{
    const std::lock_guard<std::mutex> locked(m_lock);
    m_calls.erase(std::find(m_calls.begin(), m_calls.end(), call));
}

void StallGuard::run()
{
    std::unique_lock<std::mutex> locked(m_lock);
    for (;;) {
        if (m_wakes == Time::max())
            m_changed.wait(locked);
        else
            m_changed.wait_until(locked, m_wakes);
        m_wakes = endStalled();
    }
}

/// Returns when the next call would be stalled.
StallGuard::Time StallGuard::endStalled()
{
    const Time now = std::chrono::steady_clock::now();
    Time next = Time::max();
    for (const Call* call : m_calls) {
        if (call->m_end <= now)
            ::shutdown(call->m_socket(), SHUT_RDWR);
        // Again, because there may be no socket yet.
        next = std::min(next, std::max(call->m_end, now + BetweenAttempts));
    }
    return next;
}
