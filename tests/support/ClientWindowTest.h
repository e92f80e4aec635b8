#pragma once

#include "ClientFormTest.h"
#include "EditorDialog.h"
#include "EditorForm.h"
#include "MainWindow.h"

#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <optional>

/// A test of the client's window, on a new sample database for each test function.
class ClientWindowTest : public ClientFormTest {
protected:
    /// The longest wait for what will happen, in milliseconds: on a busy machine a few thousand are not enough.
    static constexpr int Patience = 60000 * TEST_TIMEOUT_SCALE;

    void openWindow();
    void closeWindow() { m_window.reset(); }
    MainWindow& window() const { return *m_window; }
    EditorDialog& dialog() const { return *m_window->editorDialog(); }
    AutoParamSetting* dialogEditor() const { return dialog().editor(); }
    FormDriver dialogDriver() const { return FormDriver(dialogEditor()); }

    /// Presses a key in a widget's window; false if the window does not get the keyboard.
    static bool press(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Presses a shortcut of the window that opens the editor.
    void pressForEditor(Qt::Key key);
    /// Does something that opens one box, and returns its text.
    QString boxOf(const std::function<void()>& action, const char* box = "msgBoxTip", bool accepts = true);
    /// Does something that opens a dialog for files, types a name and presses Enter, or leaves the dialog by Escape.
    void chooseFile(const std::function<void()>& action, const QString& file, bool accepts = true);
    /// Presses OK in the dialog and returns the text of the one box.
    QString send(const char* box = "msgBoxTip");
    /// Creates a plan through the form and returns its id; empty when it was not stored.
    QString createPlan();
    /// Ids of new plans of the sample record, the newest first.
    QStringList createSamples(int count);
    /// Moves the session's file and its companions away, restores a backup in their place, and returns its content.
    QByteArray restoreBackup();
    /// The content of the file at the session's location; empty if it has a log.
    QByteArray fileContent();

    void prepare() override;
    void tidyUp() override;

private:
    std::unique_ptr<MainWindow> m_window;
    std::optional<QTemporaryDir> m_settings; ///< the user's settings
};
