#pragma once

#include <QDialog>

class QLineEdit;

/// Asks for the reason of a step that cannot be undone. Cannot be accepted without one.
class ReasonDialog : public QDialog {
    Q_OBJECT

public:
    ReasonDialog(const QString& text, QWidget* parent);

    QString reason() const;

private:
    QLineEdit* m_reason;
};
