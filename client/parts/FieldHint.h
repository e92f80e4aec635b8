#pragma once

#include <QLabel>
#include <QTimer>

#include <functional>

/// A short notice at a field that says why an input was rejected. It disappears when the field is edited or hidden, or
/// after some seconds. It never takes the focus.
class FieldHint : public QLabel {
    Q_OBJECT

public:
    enum Duration { ForSeconds, UntilHidden };

    /// Shows a notice at `field`, replacing an earlier one. Does nothing if the field is not visible.
    static void showAt(QWidget* field, const QString& text, Duration duration = ForSeconds);
    static void hideAt(QWidget* field);
    /// Sets what a click on the notice that is shown at `field` does.
    static void setClick(QWidget* field, const std::function<void()>& action);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    explicit FieldHint(QWidget* field);
    static FieldHint* of(const QWidget* field);
    void place();

    QTimer m_timer;
    std::function<void()> m_click;
};
