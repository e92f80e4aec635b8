#pragma once

#include <QDialog>
#include <QObject>
#include <QVector>

#include <functional>

/// Answers the client's message boxes by mouse and keyboard as soon as they are shown. An unexpected box is closed, so
/// that nothing blocks, and is reported.
class MessageBoxResponder : public QObject {
    Q_OBJECT

public:
    /// A box: its object name, its text and its answer.
    struct Box {
        QString name;
        QString text;
        bool accepted = false;
    };

    MessageBoxResponder();
    ~MessageBoxResponder() override;

    /// Expects a box next, and sets its answer.
    void expect(const QString& name, bool accept = true);
    /// Called with each box before it is answered.
    void setOnShown(const std::function<void(QWidget*)>& onShown) { m_onShown = onShown; }
    /// The boxes since the last call. Unmet expectations are dropped.
    QVector<Box> take();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void answer(QDialog* box);

    QVector<Box> m_expected;
    QVector<Box> m_seen;
    std::function<void(QWidget*)> m_onShown;
};
