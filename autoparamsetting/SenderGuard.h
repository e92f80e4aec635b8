#pragma once

#include <QPointer>
#include <QWidget>

/// Keeps a widget of the editor alive while the handler of one of its signals may delete the editor. If the editor was
/// deleted, the widget is deleted after the signal has returned.
class SenderGuard {
public:
    explicit SenderGuard(QWidget* sender);
    ~SenderGuard();
    Q_DISABLE_COPY(SenderGuard)

    /// Removes a guarded widget from the editor, so that it is not deleted with it. Does nothing for other widgets. The
    /// editor's destructor calls this.
    static void release(QWidget* sender);

private:
    QPointer<QWidget> m_sender;
    bool m_wasGuarded;
};
