#pragma once

#include <QElapsedTimer>

struct sqlite3;

/// How long a connection waits for a lock that another client holds.
class LockWaits {
public:
    /// Limits the pauses of SQLite between its attempts to lock the log. Call it before the first connection is opened.
    static void limitPauses();

    /// Waits up to the limit for every lock of the connection.
    void apply(sqlite3* connection);
    /// Limit in milliseconds; 0 fails at once.
    void setLimit(int milliseconds) { m_limit = milliseconds; }

private:
    static int wait(void* waits, int attempt);

    int m_limit = 0;
    QElapsedTimer m_waiting;
};
