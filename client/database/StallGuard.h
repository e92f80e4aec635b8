#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

/// Ends calls that wait for a server longer than they may. A network that neither delivers nor fails would let them
/// wait forever. One thread looks after all calls of the process.
class StallGuard {
public:
    /// A call that uses a socket, for as long as the object exists. If that is longer than allowed, the socket is shut
    /// down, and the call fails like one whose connection is lost.
    class Call {
    public:
        Call(int socket, std::chrono::milliseconds longest);
        /// A call that opens the socket meanwhile: `socket` returns it, or -1 before, and is called by another thread.
        Call(const std::function<int()>& socket, std::chrono::milliseconds longest);
        ~Call();
        Call(const Call&) = delete;
        Call& operator=(const Call&) = delete;

    private:
        friend class StallGuard;

        const std::function<int()> m_socket;
        const std::chrono::steady_clock::time_point m_end;
    };

private:
    using Time = std::chrono::steady_clock::time_point;

    StallGuard();

    static StallGuard& instance();
    void add(const Call* call);
    void remove(const Call* call);
    void run();
    Time endStalled();

    std::mutex m_lock;
    std::condition_variable m_changed;
    std::vector<const Call*> m_calls;
    Time m_wakes = Time::max(); ///< when the thread looks again
    std::thread m_thread;
};
