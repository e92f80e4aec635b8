#pragma once

#include <QDialog>
#include <QObject>
#include <QVector>

#include <functional>

/// Answers the client's message boxes while it lives, as soon as they are shown and by mouse and keyboard. A box that
/// nobody expects is closed, so that nothing waits for ever, and is kept for the report.
class MessageBoxResponder : public QObject {
    Q_OBJECT

public:
    /// A box by its object name, with what it said and how it was answered.
    struct Box {
        QString name;
        QString text;
        bool accepted = false;
    };

    MessageBoxResponder();
    ~MessageBoxResponder() override;

    /// The next box to come, and its answer.
    void expect(const QString& name, bool accept = true);
    /// Called with each box before it is answered.
    void setOnShown(const std::function<void(QWidget*)>& onShown) { m_onShown = onShown; }
    /// The boxes since the last call. Expectations that were not met are forgotten.
    QVector<Box> take();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void answer(QDialog* box);

    QVector<Box> m_expected;
    QVector<Box> m_seen;
    std::function<void(QWidget*)> m_onShown;
};
