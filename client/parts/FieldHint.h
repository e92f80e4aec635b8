#pragma once

#include <QLabel>
#include <QTimer>

/// A short notice at a field that says why an input was rejected. It disappears when the field is edited or hidden, or
/// after some seconds. It never takes the focus.
class FieldHint : public QLabel {
    Q_OBJECT

public:
    /// Shows a notice at `field`, replacing an earlier one. Does nothing if the field is not visible.
    static void showAt(QWidget* field, const QString& text);
    static void hideAt(QWidget* field);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit FieldHint(QWidget* field);
    static FieldHint* of(const QWidget* field);
    void place();

    QTimer m_timer;
};
