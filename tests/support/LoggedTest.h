#pragma once

#include "LogCatcher.h"

#include <QLineEdit>
#include <QObject>
#include <QStringList>

#include <memory>

/// A test whose functions fail on an unexpected warning, and on an expected one that is missing.
class LoggedTest : public QObject {
    Q_OBJECT

protected:
    LogCatcher& log() const { return *m_log; }
    /// Called before each test function.
    virtual void prepare() { }
    /// Called after each test function, before the log is checked.
    virtual void tidyUp() { }

private Q_SLOTS:
    void init();
    void cleanup();

private:
    std::unique_ptr<LogCatcher> m_log;
};

/// A test of one field, in a window with a plain line edit behind it.
class FieldTest : public LoggedTest {
protected:
    /// The parent of the field; deleted with it after the test function.
    QWidget& window() const { return *m_window; }
    /// The widget that gets the focus when the field loses it.
    QLineEdit& nextField() const { return *m_next; }
    /// Shows the window and gives the field the focus.
    void showWith(QWidget* field);
    /// Replaces the content of the field by key presses.
    static void retype(QWidget* field, const QString& text);
    /// Turns the mouse wheel over a widget by one step; true when the widget uses it.
    static bool turnWheel(QWidget* widget, int step);
    /// The rows of the list of suggestions under a field; empty while it is closed.
    static QStringList suggestions(const QWidget* field);

    void prepare() override;
    void tidyUp() override;

private:
    std::unique_ptr<QWidget> m_window;
    QLineEdit* m_next = nullptr;
};
