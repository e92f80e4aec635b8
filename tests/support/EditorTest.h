#pragma once

#include "AutoParamSetting.h"
#include "EditorForm.h"
#include "LogCatcher.h"
#include "Script.h"
#include "TestClock.h"
#include <QObject>
#include <QWidget>
#include <memory>

/// The lines of a text, without the white space around them and without empty lines: long lists of calls stay readable.
QStringList lines(const char* text);

/// What every test of the editor starts from and is judged by. Before each test function the script is reset and today
/// is 2024-05-06; after it, warnings that nobody announced and announced ones that did not come fail it.
class EditorTest : public QObject {
    Q_OBJECT

protected:
    inline static const QString Account = QStringLiteral("acc1");
    inline static const QString OtherAccount = QStringLiteral("acc2");
    inline static const QString Stock = QStringLiteral("600000.K_SH");
    inline static const QString OtherStock = QStringLiteral("000001.K_SZ");
    inline static const QString Bond = QStringLiteral("113001.K_SH");
    inline static const QString HkStock = QStringLiteral("00700.HK");
    inline static const QString Unknown = QStringLiteral("999999.K_SH"); ///< a security that nobody knows
    inline static const QString PlanId = QStringLiteral("P1");

    /// Adds the securities above: the bond in lots of ten, the Hong Kong stock in steps of 500.
    void addSecurities();
    /// A new editor inside a host window, as a client would hold it; replaces the earlier one.
    AutoParamSetting& construct();
    /// The same, shown.
    AutoParamSetting& constructShown();
    /// The editor of this test function; aborts the test program when none was constructed.
    AutoParamSetting& editor() const;
    /// The window that holds it.
    QWidget& host() const;
    /// Deletes the editor with its window; the test function may go on.
    void destroy();
    /// Deletes it inside the next call of an operation, and forgets what was called until then.
    void destroyDuring(const QString& operation);
    /// Calls a slot of the editor as a connection would.
    void callSlot(const char* name);

    /// Opens a stored plan: for an edit or for a copy.
    void openPlan(const QString& planId, bool edits);
    /// Presses OK and returns what the boxes said: "kind: text".
    QStringList ok();
    /// What the boxes said since the last `forget()`.
    QStringList said() const;
    /// How many plans were sent.
    int sent() const { return script().createdRecords.size() + script().modifiedRecords.size(); }
    /// The calls and what happened in the form while something was done.
    QStringList stepsOf(const std::function<void()>& action);

    Script& script() const { return Script::instance(); }
    LogCatcher& log() const { return *m_log; }

private Q_SLOTS:
    void init();
    void cleanup();

private:
    std::unique_ptr<LogCatcher> m_log;
    std::unique_ptr<QWidget> m_host;
    AutoParamSetting* m_editor = nullptr;
};
