#pragma once

#include <QPointer>
#include <QWidget>

/// Keeps a widget of the editor alive while one of its signals is being handled by something that may delete the
/// editor. The widget dies when its signal has returned, at the latest.
class SenderGuard {
public:
    explicit SenderGuard(QWidget* sender);
    ~SenderGuard();
    Q_DISABLE_COPY(SenderGuard)

    /// To be called before the editor dies: takes a guarded widget out of it. Leaves any other widget where it is.
    static void release(QWidget* sender);

private:
    QPointer<QWidget> m_sender;
    bool m_wasGuarded;
};
