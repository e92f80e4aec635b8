#pragma once

#include "DatabaseThread.h"
#include "PlanStore.h"

#include <QObject>
#include <QVector>

/// Counts a list of plans of the session on another thread, which takes seconds if there are a million, and notes
/// places on the way. Emits nothing after its destruction.
class PlanCounter : public QObject {
    Q_OBJECT

public:
    /// How many plans are from one landmark to the next.
    static constexpr int Step = 500;

    PlanCounter();

    /// Counts a list. If it is counting already, the last one that was asked for is counted next.
    void count(const PlanList& list);

Q_SIGNALS:
    /// The list of the last `count` was counted.
    void counted(int plans, const QVector<PlanLandmark>& landmarks);

private:
    struct Answer {
        int plans = 0;
        QVector<PlanLandmark> landmarks;
    };

    static Result<Answer> answer(PlanStore plans, const PlanList& list);
    void start();
    void take(const Result<Answer>& answer);

    const StoredUser m_user;
    PlanList m_list;
    bool m_isCounting = false;
    bool m_isOutdated = false; ///< `count` was called while it is counting
    DatabaseThread m_thread;
};
