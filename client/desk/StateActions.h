#pragma once

#include "LongWork.h"
#include "PlanStates.h"

#include <QList>

class QAction;
class QProgressDialog;

/// The actions that pause, resume, stop and archive plans; disabled while one runs. Those that take long show their
/// progress and can be cancelled.
class StateActions : public QObject {
    Q_OBJECT

public:
    /// `chosen`: the ids of the chosen plans; `account`: the trading account of the current one, empty without one.
    StateActions(QWidget* window, const std::function<QStringList()>& chosen, const std::function<QString()>& account);

    QList<QAction*> actions() const { return m_actions; }

Q_SIGNALS:
    /// Plans were changed, or tried; in words.
    void finished(const QString& text);

private:
    /// Reads the ids of the plans on the other thread.
    using FindPlans = std::function<Result<QStringList>(Database& database)>;

    void add(const QString& name, const QString& text, const std::function<void()>& act);
    void setEnabled(bool isEnabled);
    void setChosen(PlanState state);
    void stopChosen();
    void pauseAccount();
    void set(const FindPlans& find, PlanState state, const QString& reason);
    void report(StateChanges& changes, PlanState state);

    QWidget* const m_window;
    const std::function<QStringList()> m_chosen;
    const std::function<QString()> m_account;
    QList<QAction*> m_actions;
    LongWork m_work;
};
