#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

/// Acts on notices: on the first one at once, and on those that follow quickly together. The last one is never lost.
class NoticeMerger : public QObject {
    Q_OBJECT

public:
    /// `act` is called for notices, once `mayAct` allows it.
    NoticeMerger(const std::function<void()>& act, const std::function<bool()>& mayAct);

    void notice();

private:
    void actOnPending();

    const std::function<void()> m_act;
    const std::function<bool()> m_mayAct;
    QTimer m_pause;
    bool m_isPending = false;
};
