#pragma once

#include "AutoParamSetting.h"
#include "FormReader.h"
#include "LogCatcher.h"
#include "Script.h"
#include "TestToday.h"
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
