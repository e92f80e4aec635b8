#pragma once

#include "AutoParamSetting.h"
#include "EditorForm.h"
#include "LogCatcher.h"
#include "PlanSample.h"
#include "Script.h"
#include "TestClock.h"

#include <QObject>
#include <QWidget>

#include <memory>

/// The lines of a text, trimmed and without empty lines, for long lists of calls.
QStringList lines(const char* text);

/// The base class of the tests of the editor. Before each test function it resets the script and sets today to
/// 2024-05-06. Unexpected warnings, and expected ones that are missing, fail the test function.
class EditorTest : public QObject {
    Q_OBJECT

protected:
    inline static const QString Account = QStringLiteral("acc1");
    inline static const QString OtherAccount = QStringLiteral("acc2");
    inline static const QString Stock = QStringLiteral("600000.K_SH");
    inline static const QString OtherStock = QStringLiteral("000001.K_SZ");
    inline static const QString Bond = QStringLiteral("113001.K_SH");
    inline static const QString HkStock = QStringLiteral("00700.HK");
    inline static const QString Unknown = QStringLiteral("999999.K_SH"); ///< an unknown security
    inline static const QString PlanId = QStringLiteral("P1");

    /// Adds the securities above: the bond in lots of ten, the Hong Kong stock in steps of 500.
    void addSecurities();
    /// Constructs an editor inside a host window, as in a client; replaces the earlier one.
    AutoParamSetting& construct();
    /// The same, and shows it.
    AutoParamSetting& constructShown();
    /// A shown editor with an ordinary account and the securities above; forgets the calls and the log until then.
    void openWithAccount();
    /// A shown editor, filled with a new plan, under review where its mode needs it. Opens the sample market unless the
    /// test has added accounts.
    void openFilledWith(const PlanSample& plan);
    /// The editor of this test function; aborts the test program if none was constructed.
    AutoParamSetting& editor() const;
    /// The window that holds it.
    QWidget& host() const;
    /// Deletes the editor with its window; the test function may go on.
    void destroy();
    /// Deletes it inside the next call of an operation, and clears the record until then.
    void destroyDuring(const QString& operation);
    /// Calls a slot of the editor by its name, as a connection does.
    void callSlot(const char* name);

    /// Opens a stored plan for edit or copy.
    void openPlan(const QString& planId, bool edits);
    /// Presses OK and returns the message boxes: "kind: text".
    QStringList ok();
    /// The message boxes since the last `forget()`.
    QStringList said() const;
    /// Number of plans that were sent.
    int sent() const { return script().createdRecords.size() + script().modifiedRecords.size(); }
    /// The calls and the changes of the form during an action.
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
