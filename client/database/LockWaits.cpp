#include "LockWaits.h"

#include <QThread>

#include <sqlite3.h>

#include <algorithm>
#include <mutex>

namespace {

// SQLite tries a lock of the log a hundred times, with pauses that grow to ten seconds in all. With this longest pause,
// in microseconds, they are a third of a second.
constexpr int LongestPause = 4000;
// Between two attempts to get any other lock, in milliseconds.
constexpr int Pause = 5;

sqlite3_vfs* usual = nullptr;

int pauseShortly(sqlite3_vfs*, int microseconds)
{
    return usual->xSleep(usual, std::min(microseconds, LongestPause));
}

} // namespace

void LockWaits::limitPauses()
{
    static std::once_flag once;
    static sqlite3_vfs limited;
    std::call_once(once, [] {
        usual = sqlite3_vfs_find(nullptr);
        limited = *usual;
        limited.pNext = nullptr;
        limited.zName = "short-pauses";
        limited.xSleep = pauseShortly;
        sqlite3_vfs_register(&limited, 1);
    });
}

void LockWaits::apply(sqlite3* connection)
{
    sqlite3_busy_handler(connection, wait, this);
}

int LockWaits::wait(void* waits, int attempt)
{
    auto* const self = static_cast<LockWaits*>(waits);
    if (attempt == 0)
        self->m_waiting.start();
    if (self->m_limit == 0 || self->m_waiting.hasExpired(self->m_limit))
        return 0;
    QThread::msleep(Pause);
    return 1;
}
