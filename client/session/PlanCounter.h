#pragma once

#include "DatabaseThread.h"
#include "UserStore.h"

#include <QObject>

/// Counts the plans of the session on another thread, which takes seconds if there are a million. Emits nothing after
/// its destruction.
class PlanCounter : public QObject {
    Q_OBJECT

public:
    PlanCounter();

    /// Counts them, and once more if it is counting already.
    void count();

Q_SIGNALS:
    /// The plans were counted after the last `count`.
    void counted(int plans);

private:
    void take(int plans);

    const StoredUser m_user;
    bool m_isCounting = false;
    bool m_isOutdated = false; ///< `count` was called while it is counting
    DatabaseThread m_thread;
};
